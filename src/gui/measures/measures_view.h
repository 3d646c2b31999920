#pragma once
// The view of the measures window: the table of measures, the four charts and the processing
// panel, laid out in code.
#include <QWidget>

namespace tv::forms {
class App;
}
namespace tv::windows {
class MeasuresWindow;
}

namespace tv::gui {

class MeasuresView : public QWidget {
    Q_OBJECT
public:
    MeasuresView(windows::MeasuresWindow& model, forms::App& app, QWidget* parent = nullptr);
};

}  // namespace tv::gui
