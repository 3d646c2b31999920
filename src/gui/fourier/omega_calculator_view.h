#pragma once
// The view of Form13 ("Omega Calculator"): a period in, an omega out.
#include <QWidget>

#include "ui_omega_calculator_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class Form13;
}

namespace tv::gui {

class OmegaCalculatorView : public QWidget {
    Q_OBJECT
public:
    OmegaCalculatorView(windows::Form13& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::OmegaCalculatorView ui_;
};

}  // namespace tv::gui
