#pragma once
// The view of Form7, the note of the target displacement window: its picture and OK.
#include <QWidget>

#include "ui_note_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class Form7;
}

namespace tv::gui {

class NoteView : public QWidget {
    Q_OBJECT
public:
    NoteView(windows::Form7& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::NoteView ui_;
};

}  // namespace tv::gui
