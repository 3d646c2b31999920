#include "gui/capacity/capacity_view.h"

#include <QCursor>
#include <QMenu>
#include <QPointer>

#include "gui/bind/binder.h"
#include "gui/chart/chart_card.h"
#include "windows/capacity/capacity_window.h"

namespace tv::gui {

CapacityView::CapacityView(windows::Form9& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    // The three pages share one place; each keeps its room while another shows, so the
    // window keeps its size from page to page.
    for (QWidget* page : {static_cast<QWidget*>(ui_.Frame1), static_cast<QWidget*>(ui_.Frame2),
                          static_cast<QWidget*>(ui_.Frame3)}) {
        QSizePolicy p = page->sizePolicy();
        p.setRetainSizeWhenHidden(true);
        page->setSizePolicy(p);
    }
    fit_chart_card(*ui_.chartPanel, *ui_.scrollIndent, *ui_.HScroll1, model.chart);

    // The popup of the calculation table: the binder ties the menu and its entry to the model's
    // menu controls by name, and the model asks for it on a right click.
    auto* popup = new QMenu(this);
    popup->setObjectName(QStringLiteral("menu_file"));
    popup->addAction(QStringLiteral("Copy to Clipboard"))->setObjectName(QStringLiteral("copy"));
    QPointer<QMenu> guarded(popup);
    model.PopupMenu = [guarded](forms::Menu&) {
        if (guarded) guarded->popup(QCursor::pos());
    };
    bind::all(*this, model, app);
}

}  // namespace tv::gui
