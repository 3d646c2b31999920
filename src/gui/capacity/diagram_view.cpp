#include "gui/capacity/diagram_view.h"

#include "gui/bind/binder.h"
#include "gui/capacity/chart_panel.h"
#include "windows/capacity/diagram_window.h"

namespace tv::gui {

DiagramView::DiagramView(windows::Form10& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    fit_chart_panel(model.chart, *ui_.chartPanel, *ui_.scrollIndent, *ui_.HScroll1);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
