#include "gui/capacity/diagram_view.h"

#include "gui/bind/binder.h"
#include "gui/chart/chart_card.h"
#include "windows/capacity/capacity_results.h"
#include "windows/capacity/capacity_window.h"
#include "windows/capacity/diagram_window.h"

namespace tv::gui {

DiagramView::DiagramView(windows::Form10& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    fit_chart_card(*ui_.chartPanel, *ui_.scrollIndent, *ui_.HScroll1, model.chart, app,
                   [&model] { return model.drawn_data(); });
    // The abscissa is in the length unit chosen on the capacity window.
    std::vector<LegendEntry> legend;
    for (std::size_t k = 0; k < windows::kDiagramColors.size(); ++k)
        legend.push_back({QString::fromLatin1(windows::kDiagramNames[k]), windows::kDiagramColors[k]});
    add_chart_titles(*ui_.chartPanel, "picNemodar1", QString::fromStdString(model.abscissa_title()),
                     QStringLiteral("Sa (g)"), legend);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
