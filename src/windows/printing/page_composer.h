#pragma once
// The printed page of a window, composed once for every front end.
#include <string>
#include <vector>

#include "forms/page.h"
#include "windows/printing/window_image.h"

namespace tv::forms {
class Form;
class PictureBox;
class Platform;
}  // namespace tv::forms

namespace tv::windows {

/// What a page holds, top to bottom at the left margin: the drawn image of a window, a picture
/// at its own size (shrunk to the page's width), a heading and lines of text.
struct PageContent {
    std::string title;  // the document's name
    const forms::Form* window = nullptr;
    WindowLayout window_layout;
    const forms::PictureBox* picture = nullptr;
    std::string font = "Tahoma";  // of the picture's texts, the heading and the lines
    std::string heading;          // bold and larger than the lines
    std::vector<std::string> lines;
};

/// One A4 page with margins of 42 points: each part is followed by a line's room, the heading
/// (12 points, bold) by one and a half, each line (10 points) by 14 points; what runs past the
/// bottom is off the page. Texts are measured by the platform's fonts.
forms::Page compose_page(const PageContent& content, forms::Platform& platform);

}  // namespace tv::windows
