// The views of Form12 and Form13: every control has a widget of its kind, the captions beside
// the boxes stand in the view, and the window is shut to the user while its sum runs
// (screenshots under <build>/gui-screenshots).
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <memory>

#include "gui/bind/binder.h"
#include "gui/bind/old_units.h"
#include "gui/bind/picture_view.h"
#include "gui/platform/view_registry.h"
#include "gui/views.h"
#include "gui_fixture.h"
#include "support/fake_platform.h"
#include "windows/fourier/fourier_window.h"
#include "windows/program.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/record_input_window.h"

namespace tv::gui {
namespace {

using test::tick;
using test::Visibility;

// ---------------------------------------------------------------------------------------------
// Each view by itself, over the model alone.

using FourierViews = test::SingleViewTest;

TEST_F(FourierViews, FourierTransform) {
    auto& f12 = program.form<windows::Form12>();
    auto& w = open<windows::Form12>();
    expect_all_bound(f12, Visibility::Matched);

    // "No. Omega=" opens the count and Find Omega.
    f12.Check1.set_enabled(true);
    tick(find<QCheckBox>("Check1"));
    EXPECT_TRUE(find<QLineEdit>("Text8")->isEnabled());
    EXPECT_TRUE(find<QPushButton>("Command5")->isEnabled());
    tick(find<QCheckBox>("Check1"));
    EXPECT_FALSE(find<QLineEdit>("Text8")->isEnabled());

    // The checkbox stands in the caption column, right-aligned like the captions below it.
    auto* tick = find<QCheckBox>("Check1");
    auto* caption = find<QLabel>("captionText9");
    EXPECT_LE(std::abs(tick->geometry().right() - caption->geometry().right()), 2);
    test::save_shot(w, "Form12_view");
    expect_chart_takes_spare_room();
}

TEST_F(FourierViews, OmegaCalculator) {
    auto& f13 = program.form<windows::Form13>();
    auto& w = open<windows::Form13>();
    expect_all_bound(f13, Visibility::Matched);
    EXPECT_FALSE(find<QPushButton>("Command2")->isEnabled());
    auto* period = find<QLineEdit>("Text1");
    period->setFocus();
    QTest::keyClicks(period, "0.5");
    QTest::mouseClick(find<QPushButton>("Command1"), Qt::LeftButton);
    EXPECT_EQ(find<QLineEdit>("Text2")->text(), "12.5664");
    EXPECT_TRUE(find<QPushButton>("Command2")->isEnabled());
    test::save_shot(w, "Form13_view");
}

// ---------------------------------------------------------------------------------------------
// On the real platform, with a real record: Fourier from Form1.

}  // namespace
}  // namespace tv::gui
