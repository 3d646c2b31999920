#pragma once
// The view of "Target Displacement by Method": the inputs, the table of values by method and
// the diagram in ADRS coordinates.
#include <QWidget>

#include "ui_nsp_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class NspWindow;
}

namespace tv::gui {

class NspView : public QWidget {
    Q_OBJECT
public:
    NspView(windows::NspWindow& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::NspView ui_;
};

}  // namespace tv::gui
