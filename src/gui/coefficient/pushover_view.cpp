#include "gui/coefficient/pushover_view.h"

#include "gui/bind/binder.h"
#include "gui/chart/chart_card.h"
#include "windows/coefficient/pushover_window.h"

namespace tv::gui {

namespace {

void keep_room_when_hidden(QWidget& w) {
    QSizePolicy p = w.sizePolicy();
    p.setRetainSizeWhenHidden(true);
    w.setSizePolicy(p);
}

}  // namespace

PushoverView::PushoverView(windows::Form6& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    // The bar comes and goes with each search: the column must not jump.
    keep_room_when_hidden(*ui_.ProgressBar1);
    ui_.diagramPanel->setBackgroundRole(QPalette::Base);
    ui_.diagramPanel->setAutoFillBackground(true);
    mark_axes(*ui_.diagramPanel, "picDiagram", "xBar", &model.xBar, "yBar", &model.yBar);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
