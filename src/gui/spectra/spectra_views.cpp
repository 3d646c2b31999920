#include "gui/views.h"

#include "gui/platform/view_registry.h"
#include "gui/spectra/comparison_view.h"
#include "gui/spectra/design_spectrum_view.h"
#include "gui/spectra/response_spectrum_view.h"
#include "windows/spectra/comparison_window.h"
#include "windows/spectra/design_spectrum_window.h"
#include "windows/spectra/response_spectrum_window.h"

namespace tv::gui {

void register_spectra_views(ViewRegistry& registry) {
    registry.add<windows::Form2, DesignSpectrumView>("Form2");
    registry.add<windows::Form3, ResponseSpectrumView>("Form3");
    registry.add<windows::Form4, ComparisonView>("Form4");
}

}  // namespace tv::gui
