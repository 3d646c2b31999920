#include "windows/printing/page_canvas.h"

namespace tv::windows {

forms::PageOp& PageCanvas::add(forms::PageOp::Kind kind, double x1, double y1, double x2, double y2) {
    forms::PageOp& op = page_.ops.emplace_back();
    op.kind = kind;
    op.x1 = left_ + x1 * scale_;
    op.y1 = top_ + y1 * scale_;
    op.x2 = left_ + x2 * scale_;
    op.y2 = top_ + y2 * scale_;
    op.clip = clip_;
    return op;
}

void PageCanvas::line(double x1, double y1, double x2, double y2, int colour, double width) {
    forms::PageOp& op = add(forms::PageOp::Kind::Line, x1, y1, x2, y2);
    op.colour = colour;
    op.width = width * size_scale_;
}

void PageCanvas::rect(double x, double y, double w, double h, int fill, int border, double width) {
    forms::PageOp& op = add(forms::PageOp::Kind::Rect, x, y, x + w, y + h);
    op.fill = fill;
    op.colour = border;
    op.width = width * size_scale_;
}

void PageCanvas::dot(double x, double y, double radius, int colour) {
    forms::PageOp& op = add(forms::PageOp::Kind::Dot, x, y, x, y);
    op.colour = colour;
    op.width = radius * size_scale_;
}

void PageCanvas::polyline(const std::vector<double>& points, int colour, double width) {
    forms::PageOp& op = add(forms::PageOp::Kind::Polyline, 0, 0, 0, 0);
    op.colour = colour;
    op.width = width * size_scale_;
    for (std::size_t i = 0; i + 1 < points.size(); i += 2) {
        op.points.push_back(left_ + points[i] * scale_);
        op.points.push_back(top_ + points[i + 1] * scale_);
    }
}

void PageCanvas::text(double x, double y, const std::string& s, const forms::PageFont& font, int colour) {
    forms::PageOp& op = add(forms::PageOp::Kind::Text, x, y, x, y);
    op.colour = colour;
    op.text = s;
    op.font = font;
    op.font.size *= size_scale_;
}

void PageCanvas::clip(double x, double y, double w, double h) {
    clip_ = {left_ + x * scale_, top_ + y * scale_, w * scale_, h * scale_};
}

}  // namespace tv::windows
