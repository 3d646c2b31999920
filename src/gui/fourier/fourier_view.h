#pragma once
// The view of Form12 ("Fourier Transform"): the transform and its table beside the amplitude
// chart; the picked omegas and the rebuilt history below the chart.
#include <QPointer>
#include <QWidget>

#include "ui_fourier_view.h"

namespace tv::forms {
class App;
}
namespace tv::windows {
class Form12;
}

namespace tv::gui {

class FourierView : public QWidget {
    Q_OBJECT
public:
    FourierView(windows::Form12& model, forms::App& app, QWidget* parent = nullptr);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    // While a sum runs a clear cover lies over the whole window and takes every click and key.
    void cover(bool on);

    Ui::FourierView ui_;
    QWidget* cover_ = nullptr;
    QPointer<QWidget> focus_before_;
};

}  // namespace tv::gui
