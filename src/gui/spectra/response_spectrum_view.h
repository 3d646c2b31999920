#pragma once
// The view of Form3 ("Response spectrum"): damping, record and measure above the spectrum's chart.
#include <QWidget>

#include "ui_response_spectrum_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class Form3;
}

namespace tv::gui {

class ResponseSpectrumView : public QWidget {
    Q_OBJECT
public:
    ResponseSpectrumView(windows::Form3& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::ResponseSpectrumView ui_;
};

}  // namespace tv::gui
