#include "gui/views.h"

#include "gui/platform/view_registry.h"
#include "gui/project/about_view.h"
#include "gui/project/inputs_view.h"
#include "gui/project/main_frame_view.h"
#include "gui/project/record_input_view.h"
#include "windows/project/about_window.h"
#include "windows/project/inputs_window.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/record_input_window.h"

namespace tv::gui {

void register_views(ViewRegistry& registry) {
    registry.add<windows::frmMain, MainFrameView>("frmMain");
    registry.add<windows::xhelp, AboutView>("xhelp");
    registry.add<windows::Form1, RecordInputView>("Form1");
    registry.add<windows::Form14, InputsView>("Form14");
    register_spectra_views(registry);
    register_fourier_views(registry);
    register_coefficient_views(registry);
    register_capacity_views(registry);
    register_measures_views(registry);
}

}  // namespace tv::gui
