#pragma once
// The view of Form1, the record input window: the record's lines and scale, its two tables
// and the chart of the component drawn.
#include <QWidget>

#include "ui_record_input_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class Form1;
}

namespace tv::gui {

class RecordInputView : public QWidget {
    Q_OBJECT
public:
    RecordInputView(windows::Form1& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::RecordInputView ui_;
};

}  // namespace tv::gui
