// Each window's view: every control of the model has a widget of its kind, and the views
// look as they should (screenshots under <build>/gui-screenshots).
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>

#include "gui/bind/mnemonics.h"
#include "gui/bind/picture_view.h"
#include "gui_fixture.h"
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

using ViewsTest = test::ViewTest;

TEST_F(ViewsTest, MainFrame) {
    auto& w = open<windows::frmMain>();
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
    test::save_shot(w, "frmMain_900x560");
}

// Every window's view: each control finds a widget of its kind, hidden where its control is;
// the view fits a small screen; every box a user types into or picks from says what it is and
// its unit; every button, tick, option and menu item answers Alt. A picture of each goes under
// <build>/gui-screenshots.
TEST_F(ViewsTest, EveryWindowIsBoundFitsAndAnswersAlt) {
    auto check = [this]<class F>() {
        QWidget& w = open<F>();
        const forms::Form& model = program.form<F>();
        const std::string window = model.name();
        test::expect_all_bound(w, model);
        test::expect_fits_work_area(w);
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
        test::save_shot(w, window);
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

TEST_F(ViewsTest, AboutShowsTheVersion) {
    open<windows::xhelp>();
    auto* version = find<QLabel>("lblVersion");
    ASSERT_NE(version, nullptr);
    EXPECT_TRUE(version->text().startsWith("Version : ")) << version->text().toStdString();
}

// The record's plot sits in its viewport, at the viewport's size, until Show Diagram widens it.
TEST_F(ViewsTest, RecordPlotStandsInItsViewport) {
    open<windows::Form1>();
    auto* viewport = find<PictureView>("picNemodar1");
    auto* plot = find<PictureView>("picNemodar");
    EXPECT_EQ(plot->parentWidget(), viewport);
    EXPECT_EQ(plot->size(), viewport->size());
}

}  // namespace
}  // namespace tv::gui
