#include "gui/fourier/omega_calculator_view.h"

#include "gui/bind/binder.h"
#include "windows/fourier/fourier_window.h"

namespace tv::gui {

OmegaCalculatorView::OmegaCalculatorView(windows::Form13& model, forms::App& app, QWidget* parent)
    : QWidget(parent) {
    ui_.setupUi(this);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
