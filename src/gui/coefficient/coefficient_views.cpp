#include "gui/coefficient/note_view.h"
#include "gui/coefficient/nsp_view.h"
#include "gui/coefficient/pushover_view.h"
#include "gui/coefficient/target_displacement_view.h"
#include "gui/platform/view_registry.h"
#include "gui/views.h"
#include "windows/coefficient/note_window.h"
#include "windows/coefficient/nsp_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/coefficient/target_displacement_window.h"

namespace tv::gui {

void register_coefficient_views(ViewRegistry& registry) {
    registry.add<windows::Form6, PushoverView>("Form6");
    registry.add<windows::Form7, NoteView>("Form7");
    registry.add<windows::Form8, TargetDisplacementView>("Form8");
    registry.add<windows::NspWindow, NspView>("frmNsp");
}

}  // namespace tv::gui
