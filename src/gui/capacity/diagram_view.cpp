#include "gui/capacity/diagram_view.h"

#include "forms/app.h"
#include "gui/bind/binder.h"
#include "gui/chart/chart_card.h"
#include "windows/capacity/capacity_results.h"
#include "windows/capacity/capacity_window.h"
#include "windows/capacity/diagram_window.h"

namespace tv::gui {

DiagramView::DiagramView(windows::Form10& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    fit_chart_card(*ui_.chartPanel, *ui_.scrollIndent, *ui_.HScroll1, model.chart);
    // The abscissa is in the length unit chosen on the capacity window.
    const auto* capacity = app.if_loaded<windows::Form9>();
    const std::string unit = capacity != nullptr ? capacity->vahed.caption() : std::string();
    const QString sd =
        unit.empty() ? QStringLiteral("Sd") : QStringLiteral("Sd (%1)").arg(QString::fromStdString(unit));
    std::vector<LegendEntry> legend;
    const char* names[] = {"Demand", "Reduced demand", "Capacity", "Bilinear", "Reduced points"};
    for (std::size_t k = 0; k < windows::kDiagramColors.size(); ++k)
        legend.push_back({QString::fromLatin1(names[k]), windows::kDiagramColors[k]});
    add_chart_titles(*ui_.chartPanel, "picNemodar1", sd, QStringLiteral("Sa (g)"), legend);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
