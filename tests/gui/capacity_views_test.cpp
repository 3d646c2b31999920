// The views of the capacity spectrum method: the wizard Form9 and its diagram Form10. The shipped
// sample runs through the wizard's pages by the widgets, the popup of the calculation table
// waits out of sight, and screenshots go under <build>/gui-screenshots.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSlider>
#include <QTest>

#include "gui/bind/picture_view.h"
#include "gui_fixture.h"
#include "windows/capacity/capacity_window.h"
#include "windows/capacity/diagram_window.h"

namespace tv::gui {
namespace {

const std::string kSample = std::string(TV_SOURCE_DIR) + "/samples/capacity_sample.txt";

class CapacityViewsTest : public test::ViewTest {
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

TEST_F(CapacityViewsTest, TheWizardAtLoad) {
    windows::Form9& f9 = program.form<windows::Form9>();
    QWidget& w = open<windows::Form9>();
    // A key on the unit's list reaches the model.
    auto& unit = child<QComboBox>(w, "Combo1");
    unit.setFocus();
    QTest::keyClick(&unit, Qt::Key_Down);
    test::settle();
    EXPECT_EQ(f9.Combo1.list_index(), 1);
    // The popup menu is the model's, kept out of sight until asked for.
    auto& popup = child<QMenu>(w, "menu_file");
    EXPECT_FALSE(popup.isVisible());
    ASSERT_EQ(popup.actions().size(), 1);
}

TEST_F(CapacityViewsTest, TheDiagramOfTheSample) {
    QWidget& wizard = swept_sample();
    click(wizard, "Command3");  // Next from the last page: the diagram
    ASSERT_TRUE(program.is_loaded<windows::Form10>());
    windows::Form10& f10 = program.form<windows::Form10>();
    QWidget& w = open<windows::Form10>();
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

}  // namespace
}  // namespace tv::gui
