#include "gui/measures/measures_view.h"

#include <algorithm>
#include <cmath>

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "gui/bind/binder.h"
#include "gui/bind/picture_view.h"
#include "gui/chart/chart_card.h"
#include "gui/platform/view_registry.h"
#include "gui/views.h"
#include "windows/measures/measures_window.h"

namespace tv::gui {

namespace {

template <class W>
W* named(W* w, const char* name) {
    w->setObjectName(QString::fromLatin1(name));
    return w;
}

template <class W>
W* tipped(W* w, const char* tip) {
    w->setToolTip(QString::fromUtf8(tip));
    return w;
}

}  // namespace

MeasuresView::MeasuresView(windows::MeasuresWindow& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    setWindowTitle(QStringLiteral("Ground-motion measures"));
    auto* root = new QHBoxLayout(this);

    auto* left = new QVBoxLayout;
    auto* table = named(new QTableView, "MeasureTable");
    table->verticalHeader()->hide();
    table->setMinimumSize(520, 330);
    left->addWidget(table);

    auto* panel = named(new QGroupBox, "Processing");
    auto* form = new QFormLayout(panel);
    form->addRow(QStringLiteral("Baseline correction:"), tipped(named(new QComboBox, "BaselineFit"), "How the baseline is fitted and taken off the record"));
    form->addRow(QStringLiteral("Polynomial order (0-6):"), tipped(named(new QLineEdit, "BaselineOrder"), "The order of the baseline polynomial (a whole number, 0 to 6)"));
    form->addRow(QStringLiteral("Butterworth filter:"), tipped(named(new QComboBox, "FilterKind"), "The kind of Butterworth filter: none, low-pass, high-pass or band-pass"));
    form->addRow(QStringLiteral("Low corner (Hz):"), tipped(named(new QLineEdit, "LowCorner"), "The low corner frequency of the filter, in Hz"));
    form->addRow(QStringLiteral("High corner (Hz):"), tipped(named(new QLineEdit, "HighCorner"), "The high corner frequency of the filter, in Hz"));
    form->addRow(QStringLiteral("Filter order (1-8):"), tipped(named(new QLineEdit, "FilterOrder"), "The order of the Butterworth filter (a whole number, 1 to 8)"));
    form->addRow(QStringLiteral("Zero pads (s):"), tipped(named(new QLineEdit, "Pads"), "Zeros added before and after the record while it is filtered, in s"));
    form->addRow(QString(), named(new QCheckBox, "ZeroPhase"));
    auto* buttons = new QHBoxLayout;
    for (const char* b : {"Preview", "Apply", "Undo"}) buttons->addWidget(named(new QPushButton, b));
    form->addRow(buttons);
    left->addWidget(panel);
    auto* message = named(new QLabel, "Message");
    message->setWordWrap(true);
    left->addWidget(message);
    left->addStretch(1);
    root->addLayout(left);

    auto* charts = new QVBoxLayout;
    for (const char* name : {"AccelPlot", "VelocityPlot", "DisplacementPlot", "HusidPlot"}) {
        auto* pv = named(new PictureView, name);
        const forms::PictureBox& plot = *model.find_as<forms::PictureBox>(name);
        // Each chart takes its share of the room the window gives; its menu saves what it draws.
        let_chart_grow(*pv, *pv, {plot, name, nullptr, nullptr, nullptr});
        add_chart_menu(*pv, *pv, [&model, &plot] { return model.drawn_data(plot); }, app);
        // The wheel zooms all four charts' time about the pointer; a double-click shows it whole.
        let_model_zoom(
            *pv,
            [&model, &app, &plot, pv](int steps, QPointF at) {
                const double x = at.x() * plot.width() / std::max(1, pv->width());
                app.run([&model, x, steps] { model.zoom_time(x, std::pow(1.25, steps)); });
            },
            [&model, &app] { app.run([&model] { model.set_time_view(0, 1); }); });
        charts->addWidget(pv, 1);
    }
    charts->addWidget(new QLabel(QStringLiteral("Red: X, blue: Y, grey: before processing")));
    root->addLayout(charts, 1);

    bind::all(*this, model, app);
}

void register_measures_views(ViewRegistry& registry) {
    registry.add<windows::MeasuresWindow, MeasuresView>("frmMeasures");
}

}  // namespace tv::gui
