#include "gui/coefficient/note_view.h"

#include "gui/bind/binder.h"
#include "windows/coefficient/note_window.h"

namespace tv::gui {

NoteView::NoteView(windows::Form7& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    ui_.notePanel->setBackgroundRole(QPalette::Base);
    ui_.notePanel->setAutoFillBackground(true);
    bind::all(*this, model, app);
    ui_.Command1->setFocus();
}

}  // namespace tv::gui
