#include "windows/printing/page_composer.h"

#include <algorithm>

#include "forms/picture_box.h"
#include "windows/printing/page_canvas.h"

namespace tv::windows {

namespace {

constexpr double kMargin = 42;
constexpr double kFontSize = 10;
constexpr double kLineHeight = 14;
constexpr double kTwipsPerPoint = 20;
constexpr int kPictureEdge = 0x999999;

// The pictures keep the old 0xBBGGRR colours.
int rgb(int bgr) { return ((bgr & 0xFF) << 16) | (bgr & 0xFF00) | ((bgr >> 16) & 0xFF); }

// The picture's drawing at its own size, shrunk to `room` points wide; gives the height used.
double draw_picture(forms::Page& page, const forms::PictureBox& p, const std::string& font, double left, double top,
                    double room) {
    const double wide = p.width() / kTwipsPerPoint;
    const double scale = std::min(1.0, room / std::max(wide, 1.0)) / kTwipsPerPoint;
    // Pens and texts keep their sizes in points however the drawing is shrunk.
    PageCanvas c(page, left, top, scale, 1);
    c.rect(0, 0, p.width(), p.height(), -1, kPictureEdge, 0.5);
    c.clip(0, 0, p.width(), p.height());
    const forms::PageFont text_font{font, p.font_size, false};
    for (const forms::DrawOp& op : p.ops()) {
        const int colour = rgb(op.color == -1 ? p.fore_color : op.color);
        switch (op.kind) {
            case forms::DrawOp::Kind::Line: c.line(op.x1, op.y1, op.x2, op.y2, colour, 0.75 * op.width); break;
            case forms::DrawOp::Kind::Point: c.dot(op.x1, op.y1, 0.6 * op.width, colour); break;
            case forms::DrawOp::Kind::Text: c.text(op.x1, op.y1, op.text, text_font, colour); break;
        }
    }
    return p.height() * scale;
}

}  // namespace

forms::Page compose_page(const PageContent& content, forms::Platform& platform) {
    forms::Page page;
    page.title = content.title;
    const double room = page.width - 2 * kMargin;
    double y = kMargin;
    if (content.window != nullptr)
        y += draw_window_image(page, *content.window, content.window_layout, platform, kMargin, y, room) + kLineHeight;
    if (content.picture != nullptr)
        y += draw_picture(page, *content.picture, content.font, kMargin, y, room) + kLineHeight;
    PageCanvas c(page, 0, 0, 1, 1);
    if (!content.heading.empty()) {
        c.text(kMargin, y, content.heading, {content.font, kFontSize + 2, true}, 0);
        y += 1.5 * kLineHeight;
    }
    for (const std::string& line : content.lines) {
        c.text(kMargin, y, line, {content.font, kFontSize, false}, 0);
        y += kLineHeight;
    }
    return page;
}

}  // namespace tv::windows
