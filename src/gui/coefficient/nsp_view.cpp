#include "gui/coefficient/nsp_view.h"

#include "gui/bind/binder.h"
#include "gui/bind/picture_view.h"
#include "gui/chart/chart_card.h"
#include "windows/coefficient/nsp_window.h"

namespace tv::gui {

NspView::NspView(windows::NspWindow& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    // The diagram shares the room the window gives beside the table.
    ui_.resultsRow->setStretch(1, 1);
    let_chart_grow(*ui_.picAdrs, *ui_.picAdrs, {model.picAdrs, "picAdrs", nullptr, nullptr, nullptr});
    add_chart_menu(*ui_.picAdrs, *ui_.picAdrs, [&model] { return model.drawn_data(); }, app);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
