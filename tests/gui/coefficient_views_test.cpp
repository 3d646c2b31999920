// The views of the coefficient method: Form6 "Calculate T-Effective" and the methods side by
// side. The worked curve is fitted and handed on through the widgets, and screenshots go under
// <build>/gui-screenshots.
#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLineEdit>
#include <QTableView>

#include "gui/bind/old_units.h"
#include "gui/bind/picture_view.h"
#include "gui_fixture.h"
#include "support/files.h"
#include "windows/coefficient/nsp_window.h"
#include "windows/coefficient/pushover_window.h"

namespace tv::gui {
namespace {

using test::inside;

class CoefficientViewsTest : public test::ViewTest {
protected:
    CoefficientViewsTest() { platform.printer_names = {"Office Laser", "PDF Printer"}; }

    /// The worked curve read by Start and its yield point found by Auto Yeld Point, all through
    /// the widgets of Form6's view.
    QWidget& fitted_form6() {
        QWidget& w = open<windows::Form6>();
        type_into(w, "Text1", QString::fromStdString(scratch.write("curve.txt", test::kSofteningListing)));
        click(w, "Command2");
        click(w, "Command3");
        return w;
    }

    test::TempDir scratch;
};

TEST_F(CoefficientViewsTest, TEffectiveWindowAtLoad) {
    windows::Form6& f6 = program.form<windows::Form6>();
    QWidget& w = open<windows::Form6>();
    // The diagram and its strips stand inside the printed area, at the model's size.
    auto& area = child<PictureView>(w, "Picture1");
    for (const char* part : {"picDiagram", "xBar", "yBar"}) {
        auto& p = child<PictureView>(w, part);
        EXPECT_EQ(p.parentWidget(), &area) << part;
        EXPECT_TRUE(inside(p, area)) << part;
    }
    EXPECT_EQ(area.width(), twips_to_px(f6.Picture1.width(), &area));
    EXPECT_EQ(area.height(), twips_to_px(f6.Picture1.height(), &area));

    // "Excel table" shows the sample sheet, its picture inside its frame.
    click(w, "Command7");
    EXPECT_FALSE(child<QGroupBox>(w, "Frame2").isHidden());
    EXPECT_TRUE(inside(child<PictureView>(w, "Picture2"), child<QGroupBox>(w, "Frame2")));
    test::save_shot(w, "Form6_sample_sheet");
}

TEST_F(CoefficientViewsTest, TheMethodsSideBySideOpenFromTheFittedCurve) {
    fitted_form6();
    QWidget& v6 = *opened.front();
    click(v6, "cmdNsp");
    windows::NspWindow& model = program.form<windows::NspWindow>();
    EXPECT_TRUE(model.visible());
    QWidget& w = open<windows::NspWindow>();
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
