#pragma once
// The view of frmMain: the program's main window, its menu and the area the other windows
// stand in.
#include <QMainWindow>
#include <QMenu>

#include "ui_main_frame_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class frmMain;
}

namespace tv::gui {

class MainFrameView : public QMainWindow {
    Q_OBJECT
public:
    MainFrameView(windows::frmMain& model, forms::App& app, QWidget* parent = nullptr);

    QMdiArea* area() const { return ui_.mdiArea; }
    /// Cascade, Tile and one entry per open window; filled again each time it opens.
    QMenu* window_menu() const { return window_menu_; }
    void fill_window_menu();

private:
    void add_window_menu();

    Ui::MainFrameView ui_;
    QMenu* window_menu_ = nullptr;
};

}  // namespace tv::gui
