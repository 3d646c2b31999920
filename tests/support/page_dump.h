#pragma once
// A printed page as text, for expected pages kept as data under tests/golden/windows (compared
// with expect_state of form_dump.h): its size and title, then a line an operation with its
// corners, pen, ink, fill, font, text, points and clip, every number as it reads back exactly.
#include <string>
#include <vector>

#include "forms/page.h"

namespace tv::test {

std::string dump(const forms::Page& page);
std::string dump(const std::vector<forms::Page>& pages);

}  // namespace tv::test
