#pragma once
// A printed page or a picture's drawing as text, for expected drawings kept as data under
// tests/golden/windows (compared with expect_state of form_dump.h): the page's size and title or
// the picture's size, then a line an operation with its corners, pen, ink, fill, font, text,
// points and clip, every number as it reads back exactly.
#include <string>
#include <vector>

#include "forms/page.h"
#include "forms/picture_box.h"

namespace tv::test {

std::string dump(const forms::Page& page);
std::string dump(const std::vector<forms::Page>& pages);
std::string dump(const forms::PictureBox& picture);

}  // namespace tv::test
