#include "gui/capacity/capacity_view.h"
#include "gui/capacity/curve_capacity_view.h"
#include "gui/capacity/diagram_view.h"
#include "gui/capacity/sa_view.h"
#include "gui/platform/view_registry.h"
#include "gui/views.h"
#include "windows/capacity/capacity_window.h"
#include "windows/capacity/curve_capacity_window.h"
#include "windows/capacity/diagram_window.h"
#include "windows/capacity/sa_window.h"

namespace tv::gui {

void register_capacity_views(ViewRegistry& registry) {
    registry.add<windows::Form9, CapacityView>("Form9");
    registry.add<windows::Form10, DiagramView>("Form10");
    registry.add<windows::Form11, SaView>("Form11");
    registry.add<windows::frmCurveCapacity, CurveCapacityView>("frmCurveCapacity");
}

}  // namespace tv::gui
