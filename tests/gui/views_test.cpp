// Each window's view: every control of the model has a widget of its kind, and the views
// look as they should (screenshots under <build>/gui-screenshots).
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTableView>
#include <QTest>
#include <memory>

#include "gui/bind/binder.h"
#include "gui/bind/mnemonics.h"
#include "gui/bind/picture_view.h"
#include "gui/platform/view_registry.h"
#include "gui/views.h"
#include "gui_fixture.h"
#include "support/fake_platform.h"
#include "windows/program.h"
#include "windows/capacity/capacity_window.h"
#include "windows/capacity/curve_capacity_window.h"
#include "windows/capacity/diagram_window.h"
#include "windows/capacity/sa_window.h"
#include "windows/coefficient/note_window.h"
#include "windows/coefficient/nsp_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/coefficient/target_displacement_window.h"
#include "windows/fourier/fourier_window.h"
#include "windows/measures/measures_window.h"
#include "windows/project/about_window.h"
#include "windows/project/inputs_window.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/record_input_window.h"
#include "windows/spectra/comparison_window.h"
#include "windows/spectra/design_spectrum_window.h"
#include "windows/spectra/response_spectrum_window.h"

namespace tv::gui {
namespace {

using ViewsTest = test::SingleViewTest;

TEST_F(ViewsTest, RegisteredWindows) {
    for (const char* name : {"frmMain", "xhelp", "Form1", "Form14"}) EXPECT_TRUE(views.has(name)) << name;
}

TEST_F(ViewsTest, MainFrame) {
    auto& frame = program.form<windows::frmMain>();
    auto& w = open<windows::frmMain>();
    expect_all_bound(frame);
    auto* main = qobject_cast<QMainWindow*>(&w);
    ASSERT_NE(main, nullptr);
    EXPECT_NE(qobject_cast<QMdiArea*>(main->centralWidget()), nullptr);
    const QList<QAction*> top = main->menuBar()->actions();
    ASSERT_EQ(top.size(), 4);
    EXPECT_EQ(top[0]->text(), "&Project");
    EXPECT_EQ(top[1]->text(), "&Report");
    EXPECT_EQ(top[2]->text(), "&Window");
    EXPECT_EQ(top[3]->text(), "&About");
    // Without results no report can be made.
    QStringList reports;
    for (QAction* a : top[1]->menu()->actions()) reports << a->text() + (a->isEnabled() ? "" : " (off)");
    EXPECT_EQ(reports, QStringList({"&Ground Motion Report... (off)", "&Coefficient Method Report... (off)",
                                    "Capacity &Spectrum Report... (off)"}));
    QStringList entries;
    for (QAction* a : top[0]->menu()->actions()) entries << (a->isSeparator() ? QStringLiteral("-") : a->text());
    EXPECT_EQ(entries, QStringList({"&Open/Add Record", "-", "&Coefficient Method", "-", "Capacity Spec &Method", "-",
                                    "Open &Project...", "&Save Project", "Save Project &As...",
                                    "Recent Pro&jects", "-", "&Exit"}));
    main->resize(900, 560);
    test::save_shot(w, "frmMain");
}

// Every box a user types into or picks from says what it is and its unit; every button, tick,
// option and menu item answers Alt.
TEST_F(ViewsTest, EveryInputHasATipAndEveryButtonAndMenuAKey) {
    auto check = [this]<class F>() {
        QWidget& w = open<F>();
        const std::string window = program.form<F>().name();
        for (QWidget* box : w.findChildren<QWidget*>()) {
            const bool input = (qobject_cast<QLineEdit*>(box) && !qobject_cast<QComboBox*>(box->parentWidget())) ||
                               qobject_cast<QComboBox*>(box) || qobject_cast<QPlainTextEdit*>(box);
            if (input && box->isVisibleTo(&w)) {
                EXPECT_FALSE(box->toolTip().isEmpty()) << window << ": " << box->objectName().toStdString();
            }
        }
        QStringList captions;
        for (auto* b : w.findChildren<QAbstractButton*>())
            if (b->isVisibleTo(&w)) captions << b->text();
        for (auto* a : w.findChildren<QAction*>())
            if (!a->isSeparator()) captions << a->text();
        for (const QString& c : captions)
            if (!c.isEmpty()) {
                EXPECT_FALSE(bind::mnemonic_of(c).isNull()) << window << ": " << c.toStdString();
            }
    };
    check.operator()<windows::frmMain>();
    check.operator()<windows::xhelp>();
    check.operator()<windows::Form1>();
    check.operator()<windows::Form14>();
    check.operator()<windows::Form2>();
    check.operator()<windows::Form3>();
    check.operator()<windows::Form4>();
    check.operator()<windows::Form12>();
    check.operator()<windows::Form13>();
    check.operator()<windows::MeasuresWindow>();
    check.operator()<windows::Form6>();
    check.operator()<windows::Form7>();
    check.operator()<windows::Form8>();
    check.operator()<windows::NspWindow>();
    check.operator()<windows::Form9>();
    check.operator()<windows::Form10>();
    check.operator()<windows::Form11>();
    check.operator()<windows::frmCurveCapacity>();
}

TEST_F(ViewsTest, About) {
    auto& about = program.form<windows::xhelp>();
    auto& w = open<windows::xhelp>();
    expect_all_bound(about);
    auto* version = w.findChild<QLabel*>("lblVersion");
    ASSERT_NE(version, nullptr);
    EXPECT_TRUE(version->text().startsWith("Version : ")) << version->text().toStdString();
    test::save_shot(w, "xhelp");
}

TEST_F(ViewsTest, Inputs) {
    auto& inputs = program.form<windows::Form14>();
    auto& w = open<windows::Form14>();
    expect_all_bound(inputs);
    auto* box = w.findChild<QLineEdit*>("Xfline");
    ASSERT_NE(box, nullptr);
    box->setFocus();
    QTest::keyClicks(box, "5");
    EXPECT_EQ(inputs.Xfline.text(), "5");
    test::save_shot(w, "Form14");
}

TEST_F(ViewsTest, RecordInput) {
    auto& f1 = program.form<windows::Form1>();
    auto& w = open<windows::Form1>();
    expect_all_bound(f1);
    // Only record 1's tables at first.
    for (const char* shown : {"Grid1", "Grid2"}) EXPECT_FALSE(w.findChild<QTableView*>(shown)->isHidden()) << shown;
    for (const char* hidden : {"Grid3", "grid4", "grid5", "grid6"})
        EXPECT_TRUE(w.findChild<QTableView*>(hidden)->isHidden()) << hidden;

    // Typing and clicking reach the model.
    auto* step = w.findChild<QLineEdit*>("xstep");
    step->selectAll();
    QTest::keyClicks(step, "0.02");
    EXPECT_EQ(f1.xstep.text(), "0.02");
    QTest::mouseClick(w.findChild<QRadioButton*>("Option2"), Qt::LeftButton);
    EXPECT_TRUE(f1.Option2.value());
    EXPECT_FALSE(f1.Option1.value());
    // Show Diagram before the Y file: the window's own message.
    QTest::mouseClick(w.findChild<QPushButton*>("Command2"), Qt::LeftButton);
    ASSERT_FALSE(platform.messages.empty());
    EXPECT_EQ(platform.messages.back().text, "enter File y");
    // The plot sits in its viewport, the strips beside and below it.
    auto* viewport = w.findChild<PictureView*>("picNemodar1");
    auto* plot = w.findChild<PictureView*>("picNemodar");
    EXPECT_EQ(plot->parentWidget(), viewport);
    EXPECT_EQ(plot->size(), viewport->size());
    test::save_shot(w, "Form1_empty");
}

}  // namespace
}  // namespace tv::gui
