#include "gui/views.h"

#include "gui/fourier/fourier_view.h"
#include "gui/fourier/omega_calculator_view.h"
#include "gui/platform/view_registry.h"
#include "windows/fourier/fourier_window.h"

namespace tv::gui {

void register_fourier_views(ViewRegistry& registry) {
    registry.add<windows::Form12, FourierView>("Form12");
    registry.add<windows::Form13, OmegaCalculatorView>("Form13");
}

}  // namespace tv::gui
