#include "gui/spectra/response_spectrum_view.h"

#include <QEvent>
#include <algorithm>
#include <QLabel>
#include <QStringList>

#include "gui/bind/binder.h"
#include "gui/bind/old_units.h"
#include "gui/bind/picture_view.h"
#include "gui/chart/chart_card.h"
#include "windows/spectra/response_spectrum_window.h"

namespace tv::gui {

namespace {

// The chart's legend names the curves drawn now: none without RotD, else the component's
// spectrum and the RotD curves that were calculated.
class RotDLegend : public QObject {
public:
    RotDLegend(QWidget& plot, QLabel& legend, const windows::Form3& model)
        : QObject(&plot), legend_(legend), model_(model) {
        plot.installEventFilter(this);
        legend.hide();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) update();
        return QObject::eventFilter(watched, event);
    }

private:
    void update() {
        const bool on = model_.rotd50Calculated || model_.rotd100Calculated;
        if (!on) {
            legend_.hide();
            return;
        }
        QStringList rows;
        auto row = [&rows](int colour, const QString& name) {
            rows << QStringLiteral("<span style=\"color:%1\">&#9644;&#9644;</span>&nbsp;%2")
                        .arg(readable_on_white(old_colour(colour)).name(), name);
        };
        row(0x0000FF, model_.Option1.value() ? QStringLiteral("Sa of X") : QStringLiteral("Sa of Y"));
        if (model_.rotd50Calculated) row(windows::kRotD50Colour, QStringLiteral("RotD50"));
        if (model_.rotd100Calculated) row(windows::kRotD100Colour, QStringLiteral("RotD100"));
        const QString text = rows.join(QStringLiteral("<br>"));
        if (legend_.text() != text) {
            legend_.setText(text);
            legend_.adjustSize();
            if (auto* viewport = legend_.parentWidget())
                legend_.move(std::max(0, viewport->width() - legend_.width() - 2), 2);
        }
        legend_.show();
    }

    QLabel& legend_;
    const windows::Form3& model_;
};

}  // namespace

ResponseSpectrumView::ResponseSpectrumView(windows::Form3& model, forms::App& app, QWidget* parent)
    : QWidget(parent) {
    ui_.setupUi(this);
    fit_chart_card(*ui_.chartPanel, *ui_.scrollIndent, *ui_.HScroll1, model.chart, app);
    auto* plot = ui_.chartPanel->findChild<PictureView*>(QStringLiteral("picNemodar"));
    auto* legend = ui_.chartPanel->findChild<QLabel*>(QStringLiteral("chartLegend"));
    if (plot != nullptr && legend != nullptr) new RotDLegend(*plot, *legend, model);
    bind::all(*this, model, app);
}

}  // namespace tv::gui
