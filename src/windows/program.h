#pragma once
// The running program: the windows' App with the project state, and the base of every window
// model, which reaches both.
#include <functional>
#include <map>
#include <string>

#include "forms/app.h"
#include "forms/form.h"
#include "windows/project_state.h"

namespace tv::windows {

class Program : public forms::App {
public:
    explicit Program(forms::Platform& platform);
    ProjectState state;

    /// The window of that name, loaded on first reference like form<F>(): a window opens one of
    /// an area that includes its own this way, so that no two areas include each other.
    forms::Form& form_named(const std::string& name);

private:
    std::map<std::string, std::function<forms::Form&(Program&)>, std::less<>> named_;
};

/// The main frame's size in twips; child windows are centred in it.
inline constexpr double kMainFrameWidth = 15360;
inline constexpr double kMainFrameHeight = 11520;

class Window : public forms::Form {
public:
    Window(forms::App& app, std::string name, std::string caption, double width = 9000, double height = 6000)
        : forms::Form(app, std::move(name), std::move(caption), width, height) {}

    Program& program() const { return static_cast<Program&>(app()); }
    ProjectState& state() const { return program().state; }
    forms::Platform& platform() const { return app().platform(); }
};

/// Opens a window of the record chain centred in the main frame (never maximised here).
void showChildWindow(Window& form, bool maximised);

}  // namespace tv::windows
