#include "forms/control.h"

#include <algorithm>

#include "forms/controls.h"
#include "forms/form.h"
#include "text/runtime_error.h"

namespace tv::forms {

Control::Control(Form& owner, std::string name, ControlKind kind, Control* container)
    : form_(&owner), name_(std::move(name)), kind_(kind), container_(container) {}

void Control::set_enabled(bool on) {
    if (on == enabled_) return;
    enabled_ = on;
    notify();
}

void Control::set_visible(bool on) {
    if (on == visible_) return;
    visible_ = on;
    notify();
}

void TextBox::set_text(std::string text) {
    if (text == text_) return;
    text_ = std::move(text);
    notify();
    if (Change) Change();
}

void Label::set_caption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    notify();
}

void Label::click() {
    if (enabled() && Click) Click();
}

void CheckBox::set_caption(std::string c) {
    caption_ = std::move(c);
    notify();
}

void CheckBox::set_value(int v) {
    if (v == value_) return;
    value_ = v;
    notify();
    if (Click) Click();
}

void CheckBox::user_click() {
    if (!enabled()) return;
    set_value(value_ == 1 ? 0 : 1);
}

void OptionButton::set_caption(std::string c) {
    caption_ = std::move(c);
    notify();
}

void OptionButton::set_value(bool v) {
    if (v == value_) return;
    value_ = v;
    if (v) {
        for (const auto& c : form().controls()) {
            auto* o = dynamic_cast<OptionButton*>(c.get());
            if (o && o != this && o->container() == container() && o->value_) {
                o->value_ = false;
                o->notify();
            }
        }
    }
    notify();
    if (v && Click) Click();
}

void OptionButton::user_click() {
    if (!enabled()) return;
    set_value(true);
}

void CommandButton::set_caption(std::string c) {
    caption_ = std::move(c);
    notify();
}

void CommandButton::press() {
    if (!enabled() || !visible()) return;
    if (Click) Click();
}

void ComboBox::clear() {
    items_.clear();
    index_ = -1;
    text_.clear();
    notify();
}

void ComboBox::add_item(std::string item) {
    items_.push_back(std::move(item));
    notify();
}

void ComboBox::set_list_index(int i) {
    if (i < -1 || i >= static_cast<int>(items_.size())) text::raise(text::kInvalidPropertyValue);
    if (i == index_) return;
    index_ = i;
    text_ = i >= 0 ? items_[static_cast<std::size_t>(i)] : std::string();
    notify();
    if (Click) Click();
}

void ComboBox::set_text(std::string t) {
    text_ = std::move(t);
    notify();
}

void Frame::set_caption(std::string c) {
    caption_ = std::move(c);
    notify();
}

void Slider::set_value(int v) {
    v = std::clamp(v, min_, max_);
    if (v == value_) return;
    value_ = v;
    notify();
    if (Change) Change();
}

void HScrollBar::set_max(int m) {
    max_ = m;
    if (value_ > max_) value_ = max_;
    notify();
}

void HScrollBar::set_min(int m) {
    min_ = m;
    notify();
}

void HScrollBar::set_value(int v) { move_to(v, Change); }

void HScrollBar::user_scroll(int v) { move_to(v, Scroll); }

void HScrollBar::move_to(int v, const Event& event) {
    v = std::clamp(v, std::min(min_, max_), std::max(min_, max_));
    if (v == value_) return;
    value_ = v;
    notify();
    if (event) event();
}

void ProgressBar::set_max(float m) {
    max_ = m;
    notify();
}
void ProgressBar::set_min(float m) {
    min_ = m;
    notify();
}
void ProgressBar::set_value(float v) {
    if (v == value_) return;
    value_ = v;
    notify();
}

void Timer::set_interval(int ms) {
    interval_ = ms;
    notify();
}

void Timer::tick() {
    if (enabled() && OnTimer) OnTimer();
}

void LineShape::set(float x1, float y1, float x2, float y2) {
    x1_ = x1;
    y1_ = y1;
    x2_ = x2;
    y2_ = y2;
    notify();
}

void Shape::set_left(float v) {
    left_ = v;
    notify();
}
void Shape::set_top(float v) {
    top_ = v;
    notify();
}
void Shape::set_size(float w, float h) {
    width_ = w;
    height_ = h;
    notify();
}

void Menu::choose() {
    if (enabled() && visible() && Click) Click();
}

}  // namespace tv::forms
