// The views of the coefficient method: Form6 "Calculate T-Effective", its note Form7 and Form8
// "Calculate Target Displacement". Every control has a widget of its kind, the worked curve is
// fitted and handed on through the widgets, and screenshots go under <build>/gui-screenshots.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTableView>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <memory>
#include <unistd.h>

#include "gui/bind/binder.h"
#include "gui/bind/mnemonics.h"
#include "gui/bind/old_units.h"
#include "gui/bind/picture_view.h"
#include "gui/platform/page_painter.h"
#include "gui/platform/view_registry.h"
#include "gui/views.h"
#include "gui_fixture.h"
#include "support/fake_platform.h"
#include "support/files.h"
#include "windows/coefficient/note_window.h"
#include "windows/coefficient/nsp_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/coefficient/target_displacement_window.h"
#include "windows/program.h"
#include "windows/project/main_frame_window.h"

namespace tv::gui {
namespace {

using forms::ControlKind;

// The softening curve worked by hand in the window's tests, in kg and cm: the scan stops at
// K = 1435, so the yield point is (1.99, 2855.7214) and Te = 1.022 with Ti = 1.
const char* kSofteningListing =
    "Pushover curve, case PUSH\n"
    "Step  Displacement  BaseForce  Hinges\n"
    " 0  0  0  0\n"
    " 1  1  1500  0\n"
    " 2  2  2600  0\n"
    " 3  3  3000  0\n"
    " 4  5  3200  0\n"
    " 5  8  3300  0\n";

using test::expect_all_bound;
using test::inside;

class CoefficientViewsTest : public test::MultiViewTest {
protected:
    CoefficientViewsTest() { platform.printer_names = {"Office Laser", "PDF Printer"}; }
    ~CoefficientViewsTest() override { opened.clear(); }

    std::string write(const std::string& name, const std::string& content) { return scratch.write(name, content); }

    /// The worked curve read by Start and its yield point found by Auto Yeld Point, all through
    /// the widgets of Form6's view.
    QWidget& fitted_form6() {
        QWidget& w = open<windows::Form6>();
        type_into(w, "Text1", QString::fromStdString(write("curve.txt", kSofteningListing)));
        click(w, "Command2");
        click(w, "Command3");
        return w;
    }

    test::TempDir scratch;
};

TEST_F(CoefficientViewsTest, EachWindowHasItsOwnViewThatFits) {
    for (const char* name : {"Form6", "Form7", "Form8"}) EXPECT_TRUE(views.has(name)) << name;
    QWidget& v6 = open<windows::Form6>();
    EXPECT_STREQ(v6.metaObject()->className(), "tv::gui::PushoverView");
    EXPECT_EQ(v6.windowTitle(), "Calculate T-Effective");
    QWidget& v7 = open<windows::Form7>();
    EXPECT_STREQ(v7.metaObject()->className(), "tv::gui::NoteView");
    QWidget& v8 = open<windows::Form8>();
    EXPECT_STREQ(v8.metaObject()->className(), "tv::gui::TargetDisplacementView");
    for (QWidget* v : {&v6, &v7, &v8}) test::expect_fits_work_area(*v);
}

TEST_F(CoefficientViewsTest, TEffectiveWindowAtLoad) {
    windows::Form6& f6 = program.form<windows::Form6>();
    QWidget& w = open<windows::Form6>();
    expect_all_bound(w, f6);
    // The diagram and its strips stand inside the printed area, at the model's size.
    auto& area = child<PictureView>(w, "Picture1");
    for (const char* part : {"picDiagram", "xBar", "yBar"}) {
        auto& p = child<PictureView>(w, part);
        EXPECT_EQ(p.parentWidget(), &area) << part;
        EXPECT_TRUE(inside(p, area)) << part;
    }
    EXPECT_EQ(area.width(), twips_to_px(f6.Picture1.width(), &area));
    EXPECT_EQ(area.height(), twips_to_px(f6.Picture1.height(), &area));

    // "Excel table" toggles the sample sheet, and Text4 with it.
    click(w, "Command7");
    EXPECT_FALSE(child<QGroupBox>(w, "Frame2").isHidden());
    EXPECT_FALSE(child<QLineEdit>(w, "Text4").isEnabled());
    EXPECT_TRUE(inside(child<PictureView>(w, "Picture2"), child<QGroupBox>(w, "Frame2")));
    test::save_shot(w, "Form6_sample_sheet");
    click(w, "Command7");
    EXPECT_TRUE(child<QGroupBox>(w, "Frame2").isHidden());
    EXPECT_TRUE(child<QLineEdit>(w, "Text4").isEnabled());
    test::save_shot(w, "Form6_empty");
}

TEST_F(CoefficientViewsTest, TheMethodsSideBySideOpenFromTheFittedCurve) {
    fitted_form6();
    QWidget& v6 = *opened.front();
    click(v6, "cmdNsp");
    windows::NspWindow& model = program.form<windows::NspWindow>();
    EXPECT_TRUE(model.visible());
    QWidget& w = open<windows::NspWindow>();
    EXPECT_STREQ(w.metaObject()->className(), "tv::gui::NspView");
    expect_all_bound(w, model);
    test::expect_fits_work_area(w);
    EXPECT_EQ(child<QLineEdit>(w, "txtTe").text().toStdString(), model.txtTe.text());
    // Form8 is not open: the weight is typed here, and the table fills.
    type_into(w, "txtW", "10000");
    click(w, "cmdCalculate");
    // A value's cell shows its number and, under the pointer, its clause.
    const QAbstractItemModel& table = *child<QTableView>(w, "grdMethods").model();
    const forms::Grid& g = model.grdMethods;
    int row = 1;
    while (row < g.rows() && g.cell_tool_tip(row, 2).empty()) ++row;
    ASSERT_LT(row, g.rows());
    const QModelIndex cell = table.index(row - 1, 2);
    EXPECT_EQ(table.data(cell).toString().toStdString(), g.text(row, 2));
    EXPECT_EQ(table.data(cell, Qt::ToolTipRole).toString().toStdString(), g.cell_tool_tip(row, 2));
    test::save_shot(w, "frmNsp");
}

}  // namespace
}  // namespace tv::gui
