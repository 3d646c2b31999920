#pragma once
// The view of xhelp, the About window.
#include <QWidget>

#include "ui_about_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class xhelp;
}

namespace tv::gui {

class AboutView : public QWidget {
    Q_OBJECT
public:
    AboutView(windows::xhelp& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::AboutView ui_;
};

}  // namespace tv::gui
