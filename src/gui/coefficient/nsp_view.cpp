#include "gui/coefficient/nsp_view.h"

#include "gui/bind/binder.h"
#include "gui/chart/chart_card.h"
#include "windows/coefficient/nsp_window.h"

namespace tv::gui {

NspView::NspView(windows::NspWindow& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    // Its picture can be copied and saved; it keeps no table of the numbers it draws, so no Save Data.
    add_chart_menu(*ui_.picAdrs, *ui_.picAdrs, {}, app);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
