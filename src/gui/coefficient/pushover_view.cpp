#include "gui/coefficient/pushover_view.h"

#include <QComboBox>

#include "gui/bind/binder.h"
#include "gui/bind/picture_view.h"
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
    add_chart_titles(*ui_.diagramPanel, "picDiagram", QString::fromStdString(model.displacement_title()),
                     QString::fromStdString(model.force_title()));
    add_chart_menu(*ui_.diagramPanel, *ui_.Picture1, [&model] { return model.drawn_data(); }, app);
    let_chart_grow(*ui_.diagramPanel, *ui_.Picture1, {model.picDiagram, "picDiagram", nullptr, "xBar", "yBar"});
    let_plot_zoom(*ui_.picDiagram, ui_.xBar);
    bind::all(*this, model, app);
    // After the binder's own connection: the model holds the new unit when the titles ask it.
    connect(ui_.cboUnits, &QComboBox::currentIndexChanged, this, [this, &model] {
        bind::Binder* b = bind::binder_of(this);
        if (b == nullptr || b->model() == nullptr) return;
        set_chart_titles(*ui_.diagramPanel, "picDiagram", QString::fromStdString(model.displacement_title()),
                         QString::fromStdString(model.force_title()));
    });
}

}  // namespace tv::gui
