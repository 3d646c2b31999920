#include "gui/project/inputs_view.h"

#include "gui/bind/binder.h"
#include "windows/project/inputs_window.h"

namespace tv::gui {

InputsView::InputsView(windows::Form14& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
