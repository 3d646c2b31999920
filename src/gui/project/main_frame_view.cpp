#include "gui/project/main_frame_view.h"

#include <QColor>
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
    bind::all(*this, model, app);
}

}  // namespace tv::gui
