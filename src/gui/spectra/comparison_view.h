#pragma once
// The view of Form4, the comparison window: rule, band and factor above the chart of average and target.
#include <QWidget>

#include "ui_comparison_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class Form4;
}

namespace tv::gui {

class ComparisonView : public QWidget {
    Q_OBJECT
public:
    ComparisonView(windows::Form4& model, forms::App& app, QWidget* parent = nullptr);

private:
    Ui::ComparisonView ui_;
};

}  // namespace tv::gui
