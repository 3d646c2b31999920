#include "gui/coefficient/target_displacement_view.h"

#include "gui/bind/binder.h"
#include "windows/coefficient/target_displacement_window.h"

namespace tv::gui {

TargetDisplacementView::TargetDisplacementView(windows::Form8& model, forms::App& app, QWidget* parent)
    : QWidget(parent) {
    ui_.setupUi(this);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
