#pragma once
// The view of Form10, "Diagram": the chart of the capacity spectrum result and its print row.
#include <QWidget>

#include "ui_diagram_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class Form10;
}

namespace tv::gui {

class DiagramView : public QWidget {
    Q_OBJECT
public:
    DiagramView(windows::Form10& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::DiagramView ui_;
};

}  // namespace tv::gui
