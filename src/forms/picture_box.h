#pragma once
// A drawing surface that records what is drawn on it, in twips from its top-left corner, so
// that tests read what was drawn and the view replays it. Coordinates come in the user scale.
#include <string>
#include <vector>

#include "forms/control.h"

namespace tv::forms {

/// One recorded drawing operation, in twips relative to the picture's top-left corner.
struct DrawOp {
    enum class Kind { Line, Point, Text };
    Kind kind;
    double x1, y1, x2, y2;  // Line: both ends; Point and Text: x1, y1
    int color;              // 0xBBGGRR; -1 the picture's fore colour
    int width;              // line width in pixels (DrawWidth)
    std::string text;       // Text only
};

class PictureBox : public Control {
public:
    /// Width and height in twips, as the window lays it out.
    PictureBox(Form& f, std::string name, double width_twips, double height_twips, Control* container = nullptr);

    // Geometry in twips (Left and Top in the container's twips).
    double left() const { return left_; }
    double top() const { return top_; }
    double width() const { return width_; }
    double height() const { return height_; }
    void set_left(double v);
    void set_top(double v);
    /// A new size keeps the user scale's numbers only when a custom scale is set, as before.
    void set_width(double v);
    void set_height(double v);

    // User scale (Scale (x1, y1)-(x2, y2)); default: twips from the top-left corner.
    void scale(double x1, double y1, double x2, double y2);
    void scale_reset();
    double scale_left() const { return sl_; }
    double scale_top() const { return st_; }
    double scale_width() const { return sw_; }
    double scale_height() const { return sh_; }
    /// User-scale coordinates to twips of this picture.
    double x_to_twips(double x) const;
    double y_to_twips(double y) const;
    /// A user-scale distance to twips (ScaleX / ScaleY from user to twips).
    double dx_to_twips(double dx) const;
    double dy_to_twips(double dy) const;
    /// Twips to user scale, for mouse positions.
    double x_from_twips(double tx) const;
    double y_from_twips(double ty) const;

    // Drawing.
    /// Clears the drawing; the current point goes back to 0, 0.
    void cls();
    void line(double x1, double y1, double x2, double y2, int color = -1);
    void pset(double x, double y, int color = -1);
    /// Print at the current point; the current point moves to the start of the next line.
    void print(const std::string& s);
    double current_x() const { return cx_; }
    double current_y() const { return cy_; }
    void set_current_x(double x) { cx_ = x; }
    void set_current_y(double y) { cy_ = y; }
    int draw_width() const { return draw_width_; }
    void set_draw_width(int w) { draw_width_ = w < 1 ? 1 : w; }
    int fore_color = 0x000000;
    int back_color = 0xFFFFFF;
    std::string font_name = "Tahoma";
    double font_size = 8.25;
    /// Text width in the user scale, measured by the platform's fonts.
    double text_width(const std::string& s) const;
    double text_height() const;
    /// Refresh: tells the view to repaint.
    void refresh() const { notify(); }

    const std::vector<DrawOp>& ops() const { return ops_; }

    /// Mouse events in the user scale.
    std::function<void(int button, int shift, double x, double y)> MouseMove;
    std::function<void(int button, int shift, double x, double y)> MouseDown;
    std::function<void(int button, int shift, double x, double y)> MouseUp;

    /// Counts clears, so that a view can drop its cached image.
    unsigned long revision() const { return revision_; }

private:
    double left_ = 0, top_ = 0, width_, height_;
    double sl_ = 0, st_ = 0, sw_, sh_;
    bool custom_scale_ = false;
    double cx_ = 0, cy_ = 0;
    int draw_width_ = 1;
    std::vector<DrawOp> ops_;
    unsigned long revision_ = 0;
};

}  // namespace tv::forms
