#pragma once
// The view of Form14 ("Inputs"): the next record file with a first line of its own.
#include <QWidget>

#include "ui_inputs_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class Form14;
}

namespace tv::gui {

class InputsView : public QWidget {
    Q_OBJECT
public:
    InputsView(windows::Form14& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::InputsView ui_;
};

}  // namespace tv::gui
