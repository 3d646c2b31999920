#pragma once
// The view of Form6, "Calculate T-Effective": the pushover file, the step table, the diagram with
// its strips, the yield point search, the final results and the response modification factor.
#include <QWidget>

#include "ui_pushover_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class Form6;
}

namespace tv::gui {

class PushoverView : public QWidget {
    Q_OBJECT
public:
    PushoverView(windows::Form6& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::PushoverView ui_;
};

}  // namespace tv::gui
