#pragma once
// A printed page as drawing operations in points (1/72 inch) from its top-left corner. The
// windows compose it; the desktop program paints it with Qt, the batch program with cairo, so
// both give the same page.
#include <string>
#include <vector>

namespace tv::forms {

/// A font of the page: family, size in points, weight.
/// The paper a document is set on.
enum class Paper { a4, letter };

struct PageFont {
    std::string family = "Tahoma";
    double size = 10;
    bool bold = false;
};

/// A rectangle of the page in points; an empty one stands for "no clip".
struct PageRect {
    double x = 0, y = 0, w = 0, h = 0;
    bool empty() const { return w <= 0 || h <= 0; }
    bool operator==(const PageRect&) const = default;
};

/// One drawing operation. Colours are 0xRRGGBB, -1 for none.
struct PageOp {
    enum class Kind { Line, Rect, Dot, Text, Polyline };
    Kind kind = Kind::Line;
    /// Line: the two ends. Rect: the top-left and bottom-right corners. Dot: the centre in
    /// (x1, y1). Text: the top-left corner of the text.
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    /// The pen of a line or of a rectangle's border; the radius of a dot.
    double width = 0;
    /// The ink of a line, dot or text; the border of a rectangle.
    int colour = 0;
    /// The inside of a rectangle.
    int fill = -1;
    std::string text;
    PageFont font;
    /// A polyline's corners as x, y pairs; its pen is `width` and `colour`.
    std::vector<double> points;
    /// Only what falls inside is drawn.
    PageRect clip;
};

/// One page: A4 portrait unless said otherwise.
struct Page {
    std::string title;  // the document's name
    double width = 595.28, height = 841.89;
    std::vector<PageOp> ops;
};

}  // namespace tv::forms
