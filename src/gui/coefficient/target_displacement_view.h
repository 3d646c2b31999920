#pragma once
// The view of Form8, "Calculate Target Displacement": the building's coefficient tables, the
// inputs handed over from Form6 and the output frame.
#include <QWidget>

#include "ui_target_displacement_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class Form8;
}

namespace tv::gui {

class TargetDisplacementView : public QWidget {
    Q_OBJECT
public:
    TargetDisplacementView(windows::Form8& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::TargetDisplacementView ui_;
};

}  // namespace tv::gui
