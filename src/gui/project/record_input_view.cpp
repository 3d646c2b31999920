#include "gui/project/record_input_view.h"

#include "gui/bind/binder.h"
#include "gui/platform/twips.h"
#include "windows/project/record_input_window.h"

namespace tv::gui {

RecordInputView::RecordInputView(windows::Form1& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    // The scroll bar stands under the plot's viewport, right of the value strip.
    const windows::Chart& chart = model.chart;
    ui_.scrollIndent->changeSize(twips_to_px(chart.picNemodar1.left(), this), 0, QSizePolicy::Fixed,
                                 QSizePolicy::Minimum);
    ui_.HScroll1->setFixedWidth(twips_to_px(chart.picNemodar1.width(), this));
    // One step is 100 twips of plot: a page is one viewport, and the thumb shows how much is seen.
    ui_.HScroll1->setPageStep(static_cast<int>(chart.picNemodar1.width() / 100));
    // The chart stands on one white card with its scroll bar and slider.
    ui_.chartPanel->setBackgroundRole(QPalette::Base);
    ui_.chartPanel->setAutoFillBackground(true);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
