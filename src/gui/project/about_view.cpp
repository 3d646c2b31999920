#include "gui/project/about_view.h"

#include <QLayout>

#include "gui/bind/binder.h"
#include "gui/project/app_icon.h"
#include "windows/project/about_window.h"

namespace tv::gui {

AboutView::AboutView(windows::xhelp& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    ui_.picLogo->setPixmap(app_icon().pixmap(QSize(64, 64)));
    setWindowIcon(app_icon());
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    bind::all(*this, model, app);
    ui_.cmdOK->setFocus();
}

}  // namespace tv::gui
