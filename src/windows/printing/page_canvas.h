#pragma once
// Drawing onto a page in local units: a placement moves and scales them onto the page's points.
#include <string>
#include <vector>

#include "forms/page.h"

namespace tv::windows {

class PageCanvas {
public:
    /// Local (x, y) lands at (left + x * scale, top + y * scale); pen widths, radii and font
    /// sizes are multiplied by `size_scale`.
    PageCanvas(forms::Page& page, double left, double top, double scale, double size_scale)
        : page_(page), left_(left), top_(top), scale_(scale), size_scale_(size_scale) {}

    void line(double x1, double y1, double x2, double y2, int colour, double width);
    /// A rectangle filled with `fill` and bordered with `border` (either -1 for none).
    void rect(double x, double y, double w, double h, int fill, int border, double width);
    void dot(double x, double y, double radius, int colour);
    /// Corners given as x, y pairs, joined by lines.
    void polyline(const std::vector<double>& points, int colour, double width);
    /// Text with its top-left corner at (x, y).
    void text(double x, double y, const std::string& s, const forms::PageFont& font, int colour);
    /// Later operations show only inside the rectangle; unclip lifts it.
    void clip(double x, double y, double w, double h);
    void unclip() { clip_ = {}; }

private:
    forms::PageOp& add(forms::PageOp::Kind kind, double x1, double y1, double x2, double y2);

    forms::Page& page_;
    double left_, top_, scale_, size_scale_;
    forms::PageRect clip_;
};

}  // namespace tv::windows
