// The views of Form2, Form3 and Form4: every control has a widget of its kind, the captions
// beside the boxes stand in the view, the Persian texts run right to left (screenshots under
// <build>/gui-screenshots).
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRawFont>
#include <QScrollBar>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTableView>
#include <QTest>
#include <QTextLayout>
#include <memory>

#include "gui/bind/binder.h"
#include "gui/bind/picture_view.h"
#include "gui/platform/qt_platform.h"
#include "gui/platform/view_registry.h"
#include "gui/views.h"
#include "gui_fixture.h"
#include "support/fake_platform.h"
#include "windows/program.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/record_input_window.h"
#include "windows/spectra/comparison_window.h"
#include "windows/spectra/design_spectrum_window.h"
#include "windows/spectra/response_spectrum_window.h"

namespace tv::gui {
namespace {

using test::tick;
using test::Visibility;

/// Whether every character of `text` finds a glyph in the font `widget` paints with, fallbacks
/// included.
bool all_glyphs_found(const QString& text, const QWidget& widget) {
    QTextLayout layout(text, widget.font());
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    int glyphs = 0;
    for (const QGlyphRun& run : layout.glyphRuns()) {
        for (quint32 g : run.glyphIndexes()) {
            if (g == 0) return false;
            ++glyphs;
        }
    }
    return glyphs > 0;
}

using SpectraViews = test::SingleViewTest;

TEST_F(SpectraViews, DesignSpectrum) {
    auto& f2 = program.form<windows::Form2>();
    auto& w = open<windows::Form2>();
    expect_all_bound(f2, Visibility::Matched);
    // A hazard puts its scale into the box; "From File" greys the options out.
    tick(find<QRadioButton>("Option6"));
    EXPECT_EQ(find<QLineEdit>("Text1")->text(), "0.3");
    tick(find<QCheckBox>("Check1"));
    EXPECT_EQ(f2.Check1.value(), 1);
    EXPECT_FALSE(find<QGroupBox>("Frame2")->isEnabled());
    EXPECT_FALSE(find<QRadioButton>("Option3")->isEnabled());
    EXPECT_TRUE(find<QPushButton>("Command3")->isEnabled());
    tick(find<QCheckBox>("Check1"));
    EXPECT_TRUE(find<QRadioButton>("Option3")->isEnabled());

    // The scroll bar stands under the plot's viewport, no wider.
    auto* viewport = find<PictureView>("picNemodar1");
    auto* scroll = find<QScrollBar>("HScroll1");
    EXPECT_EQ(scroll->width(), viewport->width());
    EXPECT_EQ(scroll->mapTo(&w, QPoint()).x(), viewport->mapTo(&w, QPoint()).x());
    test::save_shot(w, "Form2_view");
    expect_chart_takes_spare_room();
}

TEST_F(SpectraViews, ResponseSpectrum) {
    auto& f3 = program.form<windows::Form3>();
    auto& w = open<windows::Form3>();
    expect_all_bound(f3, Visibility::Matched);

    // The ticks exclude each other through the model.
    tick(find<QCheckBox>("Check1"));
    tick(find<QCheckBox>("Check2"));
    EXPECT_FALSE(find<QCheckBox>("Check1")->isChecked());
    EXPECT_TRUE(find<QCheckBox>("Check2")->isChecked());

    // The progress panel lies over the chart, hiding it, and leaves the buttons free.
    auto* panel = find<QGroupBox>("Picbar");
    auto* card = find<QWidget>("chartPanel");
    EXPECT_TRUE(panel->isHidden());
    f3.Picbar.set_visible(true);
    f3.pbar.set_max(10);
    f3.pbar.set_value(4);
    test::settle();
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(panel->parentWidget(), card);
    EXPECT_EQ(panel->geometry(), card->contentsRect());
    EXPECT_EQ(find<QProgressBar>("pbar")->value(), 400);
    test::save_shot(w, "Form3_busy");
    f3.Picbar.set_visible(false);
    EXPECT_TRUE(panel->isHidden());
    expect_chart_takes_spare_room();
}

TEST_F(SpectraViews, Comparison) {
    auto& f4 = program.form<windows::Form4>();
    auto& w = open<windows::Form4>();
    expect_all_bound(f4, Visibility::Matched);
    EXPECT_EQ(find<QLineEdit>("xbeta")->text(), "1.17");

    // The Persian caption reads right to left, its box at its right end, and every letter has a
    // glyph to show.
    auto* rule = find<QCheckBox>("Check2");
    EXPECT_EQ(rule->text(), QString::fromUtf8("\u0646\u0634\u0631\u064a\u0647 &360"));
    EXPECT_TRUE(rule->text().isRightToLeft());
    EXPECT_EQ(rule->layoutDirection(), Qt::RightToLeft);
    EXPECT_TRUE(all_glyphs_found(rule->text(), *rule));
    tick(rule);
    EXPECT_EQ(find<QLineEdit>("xbeta")->text(), "1.3");

    // The read-outs wear the colours of their marker lines.
    auto* red = find<QLabel>("LabelRed");
    auto* blue = find<QLabel>("LabelBlue");
    EXPECT_EQ(red->palette().color(red->foregroundRole()), QColor(255, 0, 0));
    EXPECT_EQ(blue->palette().color(blue->foregroundRole()), QColor(0, 0, 255));
    test::save_shot(w, "Form4_view");
    expect_chart_takes_spare_room();
}

}  // namespace
}  // namespace tv::gui
