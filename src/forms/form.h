#pragma once
// A window as data: its controls, caption, geometry and the events the old program gave it.
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/controls.h"
#include "forms/grid.h"
#include "forms/picture_box.h"

namespace tv::forms {

class App;

class Form {
public:
    Form(App& app, std::string name, std::string caption, double width_twips = 9000, double height_twips = 6000);
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    App& app() const { return *app_; }
    const std::string& name() const { return name_; }
    const std::string& caption() const { return caption_; }
    void set_caption(std::string caption);

    bool visible() const { return visible_; }
    /// Show: the platform shows the view; Activate fires. Modal waits on a display.
    void show(bool modal = false);
    void hide();

    // Geometry in twips, as the old layout gives it.
    double left = 0, top = 0, width, height;
    bool maximised = false;

    // Events of the window; the models override what the old window handled.
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    /// Set cancel to non-zero to keep the window.
    virtual void Form_Unload(int& cancel) { (void)cancel; }

    Control* find(std::string_view name) const;
    template <class C>
    C* find_as(std::string_view name) const {
        return dynamic_cast<C*>(find(name));
    }
    const std::vector<std::unique_ptr<Control>>& controls() const { return controls_; }

    /// Called when caption, visibility or geometry change, for the view.
    std::function<void()> changed;

    // Only App uses these.
    void set_visible_flag(bool v);

    // Control factories: a window (or a part of it, such as a chart) creates its controls here.
    template <class C, class... A>
    C& add(A&&... args) {
        auto p = std::make_unique<C>(*this, std::forward<A>(args)...);
        C& ref = *p;
        controls_.push_back(std::move(p));
        return ref;
    }
    TextBox& text_box(std::string name, std::string text = {}, Control* in = nullptr) {
        return add<TextBox>(std::move(name), std::move(text), in);
    }
    Label& label(std::string name, std::string caption = {}, Control* in = nullptr) {
        return add<Label>(std::move(name), std::move(caption), in);
    }
    CheckBox& check_box(std::string name, std::string caption, Control* in = nullptr) {
        return add<CheckBox>(std::move(name), std::move(caption), in);
    }
    OptionButton& option(std::string name, std::string caption, Control* in = nullptr) {
        return add<OptionButton>(std::move(name), std::move(caption), in);
    }
    CommandButton& button(std::string name, std::string caption, Control* in = nullptr) {
        return add<CommandButton>(std::move(name), std::move(caption), in);
    }
    ComboBox& combo(std::string name, Control* in = nullptr) { return add<ComboBox>(std::move(name), in); }
    Frame& frame(std::string name, std::string caption, Control* in = nullptr) {
        return add<Frame>(std::move(name), std::move(caption), in);
    }
    Grid& grid(std::string name, int rows, int cols, Control* in = nullptr) {
        return add<Grid>(std::move(name), rows, cols, in);
    }
    Slider& slider(std::string name, int min, int max, int value, Control* in = nullptr) {
        return add<Slider>(std::move(name), min, max, value, in);
    }
    HScrollBar& hscroll(std::string name, Control* in = nullptr) { return add<HScrollBar>(std::move(name), in); }
    ProgressBar& progress(std::string name, Control* in = nullptr) { return add<ProgressBar>(std::move(name), in); }
    Timer& timer(std::string name, int interval_ms) { return add<Timer>(std::move(name), interval_ms); }
    PictureBox& picture(std::string name, double w, double h, Control* in = nullptr) {
        return add<PictureBox>(std::move(name), w, h, in);
    }
    LineShape& line_shape(std::string name, Control* on) { return add<LineShape>(std::move(name), on); }
    Shape& shape(std::string name, Control* on, float w, float h) { return add<Shape>(std::move(name), on, w, h); }
    Menu& menu(std::string name, std::string caption, Control* parent = nullptr) {
        return add<Menu>(std::move(name), std::move(caption), parent);
    }

private:
    App* app_;
    std::string name_;
    std::string caption_;
    bool visible_ = false;
    std::vector<std::unique_ptr<Control>> controls_;
};

}  // namespace tv::forms
