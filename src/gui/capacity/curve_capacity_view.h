#pragma once
// The view of the window that builds a capacity table from a pushover curve.
#include <QWidget>

#include "ui_curve_capacity_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class frmCurveCapacity;
}

namespace tv::gui {

class CurveCapacityView : public QWidget {
    Q_OBJECT
public:
    CurveCapacityView(windows::frmCurveCapacity& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::CurveCapacityView ui_;
};

}  // namespace tv::gui
