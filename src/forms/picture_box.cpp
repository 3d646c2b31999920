#include "forms/picture_box.h"

#include "forms/app.h"
#include "forms/form.h"
#include "text/checked.h"

namespace tv::forms {

PictureBox::PictureBox(Form& f, std::string name, double width_twips, double height_twips, Control* container)
    : Control(f, std::move(name), ControlKind::PictureBox, container),
      width_(width_twips), height_(height_twips), sw_(width_twips), sh_(height_twips) {}

void PictureBox::set_left(double v) {
    left_ = v;
    notify();
}
void PictureBox::set_top(double v) {
    top_ = v;
    notify();
}
void PictureBox::set_width(double v) {
    width_ = v;
    if (!custom_scale_) sw_ = v;
    notify();
}
void PictureBox::set_height(double v) {
    height_ = v;
    if (!custom_scale_) sh_ = v;
    notify();
}

void PictureBox::scale(double x1, double y1, double x2, double y2) {
    sl_ = x1;
    st_ = y1;
    sw_ = x2 - x1;
    sh_ = y2 - y1;
    custom_scale_ = true;
}

void PictureBox::scale_reset() {
    sl_ = st_ = 0;
    sw_ = width_;
    sh_ = height_;
    custom_scale_ = false;
}

namespace {
// A scale of zero size is the old "Invalid procedure call" on any use of it.
double span(double s) {
    if (s == 0) text::raise(text::kInvalidCall);
    return s;
}
}  // namespace

double PictureBox::x_to_twips(double x) const { return (x - sl_) * width_ / span(sw_); }
double PictureBox::y_to_twips(double y) const { return (y - st_) * height_ / span(sh_); }
double PictureBox::dx_to_twips(double dx) const { return dx * width_ / span(sw_); }
double PictureBox::dy_to_twips(double dy) const { return dy * height_ / span(sh_); }
double PictureBox::x_from_twips(double tx) const { return width_ == 0 ? sl_ : sl_ + tx * sw_ / width_; }
double PictureBox::y_from_twips(double ty) const { return height_ == 0 ? st_ : st_ + ty * sh_ / height_; }

void PictureBox::cls() {
    ops_.clear();
    cx_ = 0;  // Cls puts the current point at 0, 0 of the user scale
    cy_ = 0;
    ++revision_;
    notify();
}

void PictureBox::line(double x1, double y1, double x2, double y2, int color) {
    ops_.push_back({DrawOp::Kind::Line, x_to_twips(x1), y_to_twips(y1), x_to_twips(x2), y_to_twips(y2),
                    color, draw_width_, {}});
    cx_ = x2;
    cy_ = y2;
}

void PictureBox::pset(double x, double y, int color) {
    ops_.push_back({DrawOp::Kind::Point, x_to_twips(x), y_to_twips(y), 0, 0, color, draw_width_, {}});
    cx_ = x;
    cy_ = y;
}

void PictureBox::print(const std::string& s) {
    ops_.push_back({DrawOp::Kind::Text, x_to_twips(cx_), y_to_twips(cy_), 0, 0, -1, draw_width_, s});
    cx_ = sl_;
    cy_ += text_height();
}

double PictureBox::text_width(const std::string& s) const {
    double twips = form().app().platform().text_width_twips(s, font_name, font_size);
    return sw_ * twips / (width_ == 0 ? 1 : width_);
}

double PictureBox::text_height() const {
    double twips = form().app().platform().text_height_twips(font_name, font_size);
    return sh_ * twips / (height_ == 0 ? 1 : height_);
}

}  // namespace tv::forms
