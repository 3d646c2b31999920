#include "gui/spectra/comparison_view.h"

#include <QLabel>

#include "gui/bind/binder.h"
#include "gui/bind/old_units.h"
#include "gui/chart/chart_card.h"
#include "windows/spectra/comparison_window.h"

namespace tv::gui {

namespace {

void paint_text(QLabel& label, const QColor& colour) {
    QPalette p = label.palette();
    // On the white card a label writes with Text, elsewhere with WindowText.
    p.setColor(QPalette::WindowText, colour);
    p.setColor(QPalette::Text, colour);
    label.setPalette(p);
}

}  // namespace

ComparisonView::ComparisonView(windows::Form4& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    fit_chart_card(*ui_.chartPanel, *ui_.scrollIndent, *ui_.HScroll1, model.chart, app);
    // Each read-out wears the colour of its marker line, so the two need no legend.
    paint_text(*ui_.LabelRed, old_colour(model.LineRed.color));
    paint_text(*ui_.LabelBlue, old_colour(model.LineBlue.color));
    bind::all(*this, model, app);
}

}  // namespace tv::gui
