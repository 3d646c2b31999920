#include "gui/capacity/curve_capacity_view.h"

#include "gui/bind/binder.h"
#include "windows/capacity/curve_capacity_window.h"

namespace tv::gui {

CurveCapacityView::CurveCapacityView(windows::frmCurveCapacity& model, forms::App& app, QWidget* parent)
    : QWidget(parent) {
    ui_.setupUi(this);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
