#include "gui/coefficient/nsp_view.h"

#include "gui/bind/binder.h"
#include "windows/coefficient/nsp_window.h"

namespace tv::gui {

NspView::NspView(windows::NspWindow& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
