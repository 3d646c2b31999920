#pragma once
// The view of Form2 ("Standard"): soil, hazard and period grid above the design spectrum's chart.
#include <QWidget>

#include "ui_design_spectrum_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class Form2;
}

namespace tv::gui {

class DesignSpectrumView : public QWidget {
    Q_OBJECT
public:
    DesignSpectrumView(windows::Form2& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::DesignSpectrumView ui_;
};

}  // namespace tv::gui
