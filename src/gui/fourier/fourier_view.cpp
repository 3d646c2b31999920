#include "gui/fourier/fourier_view.h"

#include "gui/bind/binder.h"
#include "gui/spectra/chart_card.h"
#include "windows/fourier/fourier_window.h"

namespace tv::gui {

FourierView::FourierView(windows::Form12& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    fit_chart_card(*ui_.chartPanel, *ui_.scrollIndent, *ui_.HScroll1, model.chart);
    // The peak's period is a result like the boxes beside it: white, not greyed.
    ui_.Label11->setBackgroundRole(QPalette::Base);
    ui_.Label11->setAutoFillBackground(true);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
