#pragma once
// The simple controls. Grid and PictureBox have headers of their own.
#include <string>
#include <vector>

#include "forms/control.h"

namespace tv::forms {

class TextBox : public Control {
public:
    TextBox(Form& f, std::string name, std::string text, Control* container = nullptr)
        : Control(f, std::move(name), ControlKind::TextBox, container), text_(std::move(text)) {}
    const std::string& text() const { return text_; }
    /// Fires Change when the text differs from what stood there.
    void set_text(std::string text);
    bool locked = false;
    Event Change;

private:
    std::string text_;
};

class Label : public Control {
public:
    Label(Form& f, std::string name, std::string caption, Control* container = nullptr)
        : Control(f, std::move(name), ControlKind::Label, container), caption_(std::move(caption)) {}
    const std::string& caption() const { return caption_; }
    void set_caption(std::string caption);
    /// Labels may be clicked ("Set Default").
    Event Click;
    void click();

private:
    std::string caption_;
};

class CheckBox : public Control {
public:
    CheckBox(Form& f, std::string name, std::string caption, Control* container = nullptr)
        : Control(f, std::move(name), ControlKind::CheckBox, container), caption_(std::move(caption)) {}
    const std::string& caption() const { return caption_; }
    void set_caption(std::string c);
    /// 0 unticked, 1 ticked.
    int value() const { return value_; }
    /// Fires Click when the value changes.
    void set_value(int v);
    bool checked() const { return value_ == 1; }
    /// What a user's click does: toggles, and so fires Click. Ignored when disabled.
    void user_click();
    Event Click;

private:
    std::string caption_;
    int value_ = 0;
};

/// Options are grouped by their container: setting one clears the others of the same container.
class OptionButton : public Control {
public:
    OptionButton(Form& f, std::string name, std::string caption, Control* container = nullptr)
        : Control(f, std::move(name), ControlKind::OptionButton, container), caption_(std::move(caption)) {}
    const std::string& caption() const { return caption_; }
    void set_caption(std::string c);
    bool value() const { return value_; }
    /// Setting true clears the others of the container and fires Click when it becomes set.
    void set_value(bool v);
    /// A user's click: sets the option (fires Click only if it was not set). Ignored when disabled.
    void user_click();
    Event Click;

private:
    std::string caption_;
    bool value_ = false;
};

class CommandButton : public Control {
public:
    CommandButton(Form& f, std::string name, std::string caption, Control* container = nullptr)
        : Control(f, std::move(name), ControlKind::CommandButton, container), caption_(std::move(caption)) {}
    const std::string& caption() const { return caption_; }
    void set_caption(std::string c);
    /// A click as a user makes it: a disabled or hidden button does not click.
    void press();
    Event Click;

private:
    std::string caption_;
};

class ComboBox : public Control {
public:
    ComboBox(Form& f, std::string name, Control* container = nullptr)
        : Control(f, std::move(name), ControlKind::ComboBox, container) {}
    const std::vector<std::string>& items() const { return items_; }
    void clear();
    void add_item(std::string item);
    int list_index() const { return index_; }
    /// Selects an entry (-1 none); the text follows; fires Click when the index changes.
    void set_list_index(int i);
    const std::string& text() const { return text_; }
    void set_text(std::string t);
    Event Click;

private:
    std::vector<std::string> items_;
    int index_ = -1;
    std::string text_;
};

class Frame : public Control {
public:
    Frame(Form& f, std::string name, std::string caption, Control* container = nullptr)
        : Control(f, std::move(name), ControlKind::Frame, container), caption_(std::move(caption)) {}
    const std::string& caption() const { return caption_; }
    void set_caption(std::string c);

private:
    std::string caption_;
};

class Slider : public Control {
public:
    Slider(Form& f, std::string name, int min, int max, int value, Control* container = nullptr)
        : Control(f, std::move(name), ControlKind::Slider, container), min_(min), max_(max), value_(value) {}
    int min() const { return min_; }
    int max() const { return max_; }
    int value() const { return value_; }
    /// Clamped to min..max; fires Change when the value changes.
    void set_value(int v);
    Event Change;

private:
    int min_, max_, value_;
};

class HScrollBar : public Control {
public:
    HScrollBar(Form& f, std::string name, Control* container = nullptr)
        : Control(f, std::move(name), ControlKind::HScrollBar, container) {}
    int min() const { return min_; }
    int max() const { return max_; }
    int value() const { return value_; }
    void set_max(int m);
    void set_min(int m);
    /// Clamped; fires Change when the value changes.
    void set_value(int v);
    /// A drag of the thumb: the value moves and Scroll fires.
    void user_scroll(int v);
    Event Change;
    Event Scroll;

private:
    void move_to(int v, const Event& event);

    int min_ = 0, max_ = 32767, value_ = 0;
};

class ProgressBar : public Control {
public:
    ProgressBar(Form& f, std::string name, Control* container = nullptr)
        : Control(f, std::move(name), ControlKind::ProgressBar, container) {}
    float min() const { return min_; }
    float max() const { return max_; }
    float value() const { return value_; }
    void set_max(float m);
    void set_min(float m);
    void set_value(float v);

private:
    float min_ = 0, max_ = 100, value_ = 0;
};

class Timer : public Control {
public:
    Timer(Form& f, std::string name, int interval_ms)
        : Control(f, std::move(name), ControlKind::Timer, nullptr), interval_(interval_ms) {}
    int interval() const { return interval_; }
    void set_interval(int ms);
    /// One tick, as the view's timer delivers it: runs Timer when enabled.
    void tick();
    Event OnTimer;

private:
    int interval_;
};

/// A line object placed on a picture in that picture's user scale (Line2, Line5 ...).
class LineShape : public Control {
public:
    LineShape(Form& f, std::string name, Control* picture)
        : Control(f, std::move(name), ControlKind::Line, picture) {}
    float x1() const { return x1_; }
    float y1() const { return y1_; }
    float x2() const { return x2_; }
    float y2() const { return y2_; }
    void set(float x1, float y1, float x2, float y2);
    void set_x1(float v) { set(v, y1_, x2_, y2_); }
    void set_y1(float v) { set(x1_, v, x2_, y2_); }
    void set_x2(float v) { set(x1_, y1_, v, y2_); }
    void set_y2(float v) { set(x1_, y1_, x2_, v); }
    int color = 0;  // RGB as 0xBBGGRR, the old colour values
    int width = 1;

private:
    float x1_ = 0, y1_ = 0, x2_ = 0, y2_ = 0;
};

/// A shape object on a picture (the blinking step marker), in the picture's user scale.
class Shape : public Control {
public:
    Shape(Form& f, std::string name, Control* picture, float width, float height)
        : Control(f, std::move(name), ControlKind::Shape, picture), width_(width), height_(height) {}
    float left() const { return left_; }
    float top() const { return top_; }
    float width() const { return width_; }
    float height() const { return height_; }
    void set_left(float v);
    void set_top(float v);
    void set_size(float w, float h);
    int color = 0x0000FF;

private:
    float left_ = 0, top_ = 0, width_, height_;
};

/// A menu entry of a window; `Click` runs on choice.
class Menu : public Control {
public:
    Menu(Form& f, std::string name, std::string caption, Control* parent = nullptr)
        : Control(f, std::move(name), ControlKind::Menu, parent), caption_(std::move(caption)) {}
    const std::string& caption() const { return caption_; }
    bool separator() const { return caption_ == "-"; }
    void choose();
    Event Click;

private:
    std::string caption_;
};

}  // namespace tv::forms
