// The views of Form2, Form3 and Form4: the chart takes the room the window is given, the busy
// panel covers the chart, the Persian texts run right to left (screenshots under
// <build>/gui-screenshots).
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QTextLayout>

#include "gui/bind/picture_view.h"
#include "gui_fixture.h"
#include "windows/spectra/comparison_window.h"
#include "windows/spectra/design_spectrum_window.h"
#include "windows/spectra/response_spectrum_window.h"

namespace tv::gui {
namespace {

using test::tick;

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

using SpectraViews = test::ViewTest;

TEST_F(SpectraViews, DesignSpectrum) {
    auto& w = open<windows::Form2>();
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
    auto& w = open<windows::Form4>();
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
