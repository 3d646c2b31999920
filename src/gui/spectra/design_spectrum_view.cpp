#include "gui/spectra/design_spectrum_view.h"

#include "gui/bind/binder.h"
#include "gui/chart/chart_card.h"
#include "windows/spectra/design_spectrum_window.h"

namespace tv::gui {

DesignSpectrumView::DesignSpectrumView(windows::Form2& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    fit_chart_card(*ui_.chartPanel, *ui_.scrollIndent, *ui_.HScroll1, model.chart, app);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
