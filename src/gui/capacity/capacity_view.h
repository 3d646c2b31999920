#pragma once
// The view of Form9, the capacity spectrum wizard: its three pages stacked in one place (the
// model shows one at a time), Back and Next, and the popup menu of the calculation table.
#include <QWidget>

#include "ui_capacity_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class Form9;
}

namespace tv::gui {

class CapacityView : public QWidget {
    Q_OBJECT
public:
    CapacityView(windows::Form9& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::CapacityView ui_;
};

}  // namespace tv::gui
