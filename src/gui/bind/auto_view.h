#pragma once
// A plain view laid out from a window's controls, for windows that have no view of their own
// yet: every control gets a widget of its kind under its name, and the binder does the rest.
class QWidget;

namespace tv::forms {
class App;
class Form;
}  // namespace tv::forms

namespace tv::gui {

QWidget* make_auto_view(forms::Form& form, forms::App& app);

}  // namespace tv::gui
