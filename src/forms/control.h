#pragma once
// Controls as data: what a window holds in its text boxes, check boxes, tables and pictures.
// Setting a property keeps the old event semantics (a text change fires Change, a value
// change fires Click), so that the windows' event chains play out without a display.
#include <functional>
#include <string>

namespace tv::forms {

class Form;

/// An event handler slot of a control; empty means no handler.
using Event = std::function<void()>;

enum class ControlKind {
    TextBox, Label, CheckBox, OptionButton, CommandButton, ComboBox, Frame, Grid, Slider,
    HScrollBar, ProgressBar, Timer, PictureBox, Line, Shape, Menu
};

class Control {
public:
    Control(Form& owner, std::string name, ControlKind kind, Control* container);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& name() const { return name_; }
    ControlKind kind() const { return kind_; }
    Form& form() const { return *form_; }
    /// The frame (or picture) that holds this control; null for the window itself.
    Control* container() const { return container_; }

    bool enabled() const { return enabled_; }
    void set_enabled(bool on);
    bool visible() const { return visible_; }
    void set_visible(bool on);

    /// The user's actions on it are part of the work a project keeps (not so the project's own
    /// menu entries).
    bool journaled = true;

    /// Called after every change of the control's state, for the view bound to it.
    std::function<void()> changed;

protected:
    void notify() const {
        if (changed) changed();
    }

private:
    Form* form_;
    std::string name_;
    ControlKind kind_;
    Control* container_;
    bool enabled_ = true;
    bool visible_ = true;
};

}  // namespace tv::forms
