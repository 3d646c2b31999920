#pragma once
// The view of frmMain: the program's main window, its menu and the area the other windows
// stand in.
#include <QMainWindow>

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

private:
    Ui::MainFrameView ui_;
};

}  // namespace tv::gui
