#pragma once
// The view of Form11, "Calculate SA": the spectrum's settings beside its chart.
#include <QWidget>

#include "ui_sa_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class Form11;
}

namespace tv::gui {

class SaView : public QWidget {
    Q_OBJECT
public:
    SaView(windows::Form11& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::SaView ui_;
};

}  // namespace tv::gui
