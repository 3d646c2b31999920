// The views of the capacity spectrum method: the wizard Form9, its
// diagram Form10 and Form11 "Calculate SA". Every control has a widget of its kind, the shipped
// sample runs through the wizard's pages by the widgets, the popup of the calculation table
// copies it, and screenshots go under <build>/gui-screenshots.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
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
#include "windows/capacity/capacity_window.h"
#include "windows/capacity/curve_capacity_window.h"
#include "windows/capacity/diagram_window.h"
#include "windows/capacity/sa_window.h"
#include "windows/program.h"

namespace tv::gui {
namespace {

using forms::ControlKind;

const std::string kSample = std::string(TV_SOURCE_DIR) + "/samples/capacity_sample.txt";

using test::expect_all_bound;
using test::inside;

class CapacityViewsTest : public test::MultiViewTest {
protected:
    CapacityViewsTest() { platform.printer_names = {"Office Laser"}; }


    /// The shipped sample read, its demand spectrum made and swept on the last page, by the
    /// wizard's widgets.
    QWidget& swept_sample() {
        QWidget& w = open<windows::Form9>();
        type_into(w, "Text1", QString::fromStdString(kSample));
        click(w, "Command2");
        click(w, "Command3");
        click(w, "Command6");
        click(w, "Command7");
        click(w, "Command3");
        click(w, "Command9");
        return w;
    }
};

TEST_F(CapacityViewsTest, EachWindowHasItsOwnViewThatFits) {
    for (const char* name : {"Form9", "Form10", "Form11"}) EXPECT_TRUE(views.has(name)) << name;
    QWidget& v9 = open<windows::Form9>();
    EXPECT_STREQ(v9.metaObject()->className(), "tv::gui::CapacityView");
    QWidget& v10 = open<windows::Form10>();
    EXPECT_STREQ(v10.metaObject()->className(), "tv::gui::DiagramView");
    QWidget& v11 = open<windows::Form11>();
    EXPECT_STREQ(v11.metaObject()->className(), "tv::gui::SaView");
    for (QWidget* v : {&v9, &v10, &v11}) test::expect_fits_work_area(*v);
}

TEST_F(CapacityViewsTest, TheCurveCapacityWindowOpensFromTheWizard) {
    open<windows::Form9>();
    program.form<windows::Form9>().cmdFromCurve.press();
    auto& model = program.form<windows::frmCurveCapacity>();
    QWidget& w = open<windows::frmCurveCapacity>();
    EXPECT_STREQ(w.metaObject()->className(), "tv::gui::CurveCapacityView");
    test::expect_all_bound(w, model);
    test::expect_fits_work_area(w);
    test::save_shot(w, "frmCurveCapacity");
}

TEST_F(CapacityViewsTest, TheWizardAtLoad) {
    windows::Form9& f9 = program.form<windows::Form9>();
    QWidget& w = open<windows::Form9>();
    expect_all_bound(w, f9);
    auto& unit = child<QComboBox>(w, "Combo1");
    EXPECT_EQ(unit.count(), 3);
    EXPECT_EQ(unit.currentText(), "mm");
    // The unit writes g in that unit.
    unit.setFocus();
    QTest::keyClick(&unit, Qt::Key_Down);
    test::settle();
    EXPECT_EQ(f9.Combo1.list_index(), 1);
    EXPECT_EQ(child<QLineEdit>(w, "T1").text(), "981");
    // The popup menu is the model's, kept out of sight until asked for.
    auto& popup = child<QMenu>(w, "menu_file");
    EXPECT_FALSE(popup.isVisible());
    ASSERT_EQ(popup.actions().size(), 1);
    EXPECT_EQ(bind::plain_caption(popup.actions().front()->text()), "Copy to Clipboard");
    test::save_shot(w, "Form9_capacity_empty");
}

TEST_F(CapacityViewsTest, TheDiagramOfTheSample) {
    QWidget& wizard = swept_sample();
    click(wizard, "Command3");  // Next from the last page: the diagram
    ASSERT_TRUE(program.is_loaded<windows::Form10>());
    windows::Form10& f10 = program.form<windows::Form10>();
    EXPECT_TRUE(f10.activated);
    QWidget& w = open<windows::Form10>();
    expect_all_bound(w, f10);
    EXPECT_TRUE(child<PictureView>(w, "pic1").isHidden());
    EXPECT_EQ(child<QComboBox>(w, "xprinter").currentText(), "Office Laser");
    // The pointer over the plot gives the read-out.
    auto& plot = child<PictureView>(w, "picNemodar");
    QMouseEvent move(QEvent::MouseMove, QPointF(200, 100), plot.mapToGlobal(QPointF(200, 100)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&plot, &move);
    test::settle();
    EXPECT_TRUE(child<QLabel>(w, "Label1").text().startsWith("X: ")) << child<QLabel>(w, "Label1").text().toStdString();
    test::expect_labels_inside_strips(w);
    test::save_shot(w, "Form10");
    // A wider X scale opens the scroll bar.
    child<QSlider>(w, "Slider1").setValue(3);
    test::settle();
    EXPECT_EQ(child<QLabel>(w, "Label6").text().toStdString(), f10.chart.Label6.caption());
    EXPECT_TRUE(child<QLabel>(w, "Label6").text().endsWith("3X"));
    EXPECT_TRUE(child<QScrollBar>(w, "HScroll1").isEnabled());
}

TEST_F(CapacityViewsTest, TheSaWindow) {
    windows::Form11& f11 = program.form<windows::Form11>();
    QWidget& w = open<windows::Form11>();
    expect_all_bound(w, f11);
    EXPECT_EQ(child<QGroupBox>(w, "Frisk").title(), "Hazard");
    EXPECT_FALSE(child<QPushButton>(w, "Command4").isEnabled());
    EXPECT_FALSE(child<QPushButton>(w, "Command7").isEnabled());
    // From File greys the code spectrum's settings and opens Browse.
    QTest::mouseClick(&child<QCheckBox>(w, "Check1"), Qt::LeftButton);
    test::settle();
    EXPECT_TRUE(child<QPushButton>(w, "Command4").isEnabled());
    EXPECT_FALSE(child<QGroupBox>(w, "fsoil").isEnabled());
    QTest::mouseClick(&child<QCheckBox>(w, "Check1"), Qt::LeftButton);
    test::settle();
    EXPECT_TRUE(child<QGroupBox>(w, "fsoil").isEnabled());
    QTest::mouseClick(&child<QRadioButton>(w, "Option3"), Qt::LeftButton);
    click(w, "Command6");
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_TRUE(f11.demand.Option3.value());
    EXPECT_FALSE(f11.demand.Option1.value());
    test::save_shot(w, "Form11");
}

}  // namespace
}  // namespace tv::gui
