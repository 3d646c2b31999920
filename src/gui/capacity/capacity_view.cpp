#include "gui/capacity/capacity_view.h"

#include <QCursor>
#include <QMenu>
#include <QPointer>
#include <QTableView>

#include "gui/bind/binder.h"
#include "gui/bind/grid_table_model.h"
#include "gui/chart/chart_card.h"
#include "windows/capacity/capacity_window.h"

namespace tv::gui {

namespace {

QString heading_with_unit(const QString& h, const std::string& length) {
    if (h.startsWith(QLatin1String("Sa")) || h.startsWith(QLatin1String("SA")) || h == QLatin1String("S(api)"))
        return h + QStringLiteral(" (g)");
    if (h.startsWith(QLatin1String("Sd")) || h == QLatin1String("S(dpi)"))
        return length.empty() ? h : h + QStringLiteral(" (%1)").arg(QString::fromStdString(length));
    if (h == QLatin1String("T") || h == QLatin1String("Teff")) return h + QStringLiteral(" (s)");
    return {};
}

}  // namespace

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
    fit_chart_card(*ui_.chartPanel, *ui_.scrollIndent, *ui_.HScroll1, model.chart, app);

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
    // The headings have no room for units: their tooltips give them, the length unit as chosen.
    const windows::Form9* m = &model;
    for (QTableView* table : {ui_.Fg, ui_.FG2, ui_.Fg3}) {
        if (auto* grid = qobject_cast<GridTableModel*>(table->model()))
            grid->set_heading_tips([m](const QString& h) { return heading_with_unit(h, m->vahed.caption()); });
    }
}

}  // namespace tv::gui
