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
    EXPECT_EQ(find<QLineEdit>("Text2")->text(), "0.05");
    // Until a transform ran only GO and the omega calculator can be used.
    for (const char* off : {"Command3", "Command4", "Command5", "Command9"})
        EXPECT_FALSE(find<QPushButton>(off)->isEnabled()) << off;
    EXPECT_FALSE(find<QCheckBox>("Check1")->isEnabled());

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

class FourierRoad : public test::RecordRoadTest {
protected:
    void type(const forms::Form& form, const char* name, const char* text) {
        auto* box = in<QLineEdit>(form, name);
        ASSERT_NE(box, nullptr) << name;
        box->selectAll();
        QTest::keyClicks(box, text);
    }

    /// The record shown in Form1 from line 5, then "Fourier".
    void open_fourier() {
        platform.inputs = {"1", "1"};
        platform.files = {x_file, y_file};
        for (int i = 0; i < 2; ++i) {
            frame->findChild<QAction*>("menu_open")->trigger();
            test::settle();
        }
        type(f1(), "Xfline", "5");
        click(f1(), "Command2");
        click(f1(), "Command1");
    }

    windows::Form1& f1() { return program.form<windows::Form1>(); }
    windows::Form12& f12() { return program.form<windows::Form12>(); }
};

TEST_F(FourierRoad, TheBarMovesAndTheWindowIsShutWhileTheSumRuns) {
    open_fourier();
    ASSERT_TRUE(program.is_loaded<windows::Form12>());
    QWidget* view = platform.view_of(f12());
    ASSERT_NE(view, nullptr);
    auto* cover = view->findChild<QWidget*>("busyCover");
    ASSERT_NE(cover, nullptr);
    EXPECT_FALSE(cover->isVisible());
    auto* bar = in<QProgressBar>(f12(), "pbar");
    auto* go = in<QPushButton>(f12(), "Command1");
    ASSERT_NE(bar, nullptr);
    type(f12(), "Text1", "60");  // 1,200 omegas

    std::vector<int> values;
    QObject::connect(bar, &QProgressBar::valueChanged, bar, [&](int v) { values.push_back(v); });
    // Once the sum runs, its pending events bring a user's click on GO.
    int clicks = 0;
    bool covered = false, on_top = false, hourglass = false, picbar = false, keeps_keys = false;
    QTimer poke;
    poke.setInterval(0);
    QObject::connect(&poke, &QTimer::timeout, view, [&] {
        if (clicks > 0 || !f12().looping()) return;
        ++clicks;
        covered = cover->isVisible() && cover->geometry() == view->rect();
        on_top = view->childAt(go->mapTo(view, go->rect().center())) == cover;
        hourglass = QGuiApplication::overrideCursor() != nullptr &&
                    QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
        picbar = in<QGroupBox>(f12(), "Picbar")->isVisible();
        // The keyboard stays with the cover; a click sent to GO itself does nothing either.
        QTest::keyClick(cover, Qt::Key_Tab);
        keeps_keys = view->focusWidget() == cover;
        QTest::keyClick(cover, Qt::Key_Space);
        QTest::mouseClick(go, Qt::LeftButton);
        QTest::keyClick(go, Qt::Key_Space);
    });
    poke.start();
    click(f12(), "Command1");
    poke.stop();

    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(covered);
    EXPECT_TRUE(on_top);
    EXPECT_TRUE(hourglass);
    EXPECT_TRUE(picbar);
    EXPECT_TRUE(keeps_keys);
    // One run: the bar only climbs, in many steps, to its end.
    EXPECT_GT(values.size(), 50u);
    EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
    ASSERT_FALSE(values.empty());
    EXPECT_EQ(values.back(), bar->maximum());
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_EQ(in<QTableView>(f12(), "Grid1")->model()->rowCount(), 1200);
    EXPECT_FALSE(cover->isVisible());
    EXPECT_FALSE(f12().looping());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace tv::gui
