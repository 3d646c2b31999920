#include "gui/project/main_frame_view.h"

#include <QAction>
#include <QColor>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStyle>

#include "gui/bind/binder.h"
#include "gui/project/app_icon.h"
#include "windows/project/main_frame_window.h"

namespace tv::gui {

MainFrameView::MainFrameView(windows::frmMain& model, forms::App& app, QWidget* parent) : QMainWindow(parent) {
    ui_.setupUi(this);
    setWindowIcon(app_icon());
    ui_.menu_open->setIcon(style()->standardIcon(QStyle::SP_DialogOpenButton));
    ui_.menu_exit->setIcon(style()->standardIcon(QStyle::SP_DialogCloseButton));
    // A quiet workspace behind the windows.
    ui_.mdiArea->setBackground(QColor(0x5f, 0x69, 0x73));
    add_window_menu();
    bind::all(*this, model, app);
    // Each report entry is enabled while its road has results.
    connect(ui_.menu_report, &QMenu::aboutToShow, this, [&model] { model.update_report_menu(); });
}

void MainFrameView::add_window_menu() {
    // Each Next opens a window over the last: this menu brings any of them back to the front.
    window_menu_ = new QMenu(tr("&Window"), this);
    window_menu_->setObjectName(QStringLiteral("window_menu"));
    menuBar()->insertMenu(ui_.help, window_menu_);
    connect(window_menu_, &QMenu::aboutToShow, this, &MainFrameView::fill_window_menu);
    fill_window_menu();
}

void MainFrameView::fill_window_menu() {
    QMdiArea* area = ui_.mdiArea;
    window_menu_->clear();
    window_menu_->addAction(tr("&Cascade"), area, &QMdiArea::cascadeSubWindows)->setObjectName("window_cascade");
    window_menu_->addAction(tr("&Tile"), area, &QMdiArea::tileSubWindows)->setObjectName("window_tile");
    int n = 0;
    for (QMdiSubWindow* sub : area->subWindowList(QMdiArea::CreationOrder)) {
        if (sub->isHidden()) continue;
        if (n == 0) window_menu_->addSeparator();
        ++n;
        const QString title = sub->windowTitle();
        QAction* a = window_menu_->addAction(n < 10 ? QStringLiteral("&%1 %2").arg(n).arg(title) : title);
        a->setCheckable(true);
        a->setChecked(sub == area->activeSubWindow());
        QPointer<QMdiSubWindow> guarded(sub);
        connect(a, &QAction::triggered, this, [area, guarded] {
            if (!guarded) return;
            if (guarded->isMinimized()) guarded->showNormal();
            area->setActiveSubWindow(guarded);
        });
    }
}

}  // namespace tv::gui
