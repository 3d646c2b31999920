// The views of the capacity spectrum method: the wizard Form9 "Capacity Spec Method", its
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
#include "gui/bind/picture_view.h"
#include "gui/platform/view_registry.h"
#include "gui/views.h"
#include "gui_fixture.h"
#include "support/fake_platform.h"
#include "windows/capacity/capacity_window.h"
#include "windows/capacity/diagram_window.h"
#include "windows/capacity/sa_window.h"
#include "windows/program.h"

namespace tv::gui {
namespace {

using forms::ControlKind;

const std::string kSample = std::string(TV_SOURCE_DIR) + "/samples/capacity_sample.txt";

bool right_kind(const forms::Control& c, QObject* o) {
    switch (c.kind()) {
        case ControlKind::TextBox: return qobject_cast<QLineEdit*>(o) || qobject_cast<QPlainTextEdit*>(o);
        case ControlKind::Label: return qobject_cast<QLabel*>(o);
        case ControlKind::CheckBox: return qobject_cast<QCheckBox*>(o);
        case ControlKind::OptionButton: return qobject_cast<QRadioButton*>(o);
        case ControlKind::CommandButton: return qobject_cast<QAbstractButton*>(o);
        case ControlKind::ComboBox: return qobject_cast<QComboBox*>(o);
        case ControlKind::Frame: return qobject_cast<QGroupBox*>(o);
        case ControlKind::Grid: return qobject_cast<QTableView*>(o);
        case ControlKind::Slider: return qobject_cast<QSlider*>(o);
        case ControlKind::HScrollBar: return qobject_cast<QScrollBar*>(o);
        case ControlKind::ProgressBar: return qobject_cast<QProgressBar*>(o);
        case ControlKind::PictureBox: return qobject_cast<PictureView*>(o);
        case ControlKind::Menu: return qobject_cast<QAction*>(o);
        case ControlKind::Timer:
        case ControlKind::Line:
        case ControlKind::Shape: return true;
    }
    return false;
}

/// Every control of the window finds an object of its kind; lines stand on a bound picture.
void expect_all_bound(const QWidget& view, const forms::Form& model) {
    bind::Binder* b = bind::binder_of(&view);
    ASSERT_NE(b, nullptr);
    for (const auto& c : model.controls()) {
        const auto kind = c->kind();
        if (kind == ControlKind::Timer) continue;
        if (kind == ControlKind::Line || kind == ControlKind::Shape) {
            ASSERT_NE(c->container(), nullptr) << c->name();
            EXPECT_NE(qobject_cast<PictureView*>(b->target(*c->container())), nullptr) << c->name();
            continue;
        }
        QObject* o = b->target(*c);
        ASSERT_NE(o, nullptr) << model.name() << ": no widget named " << c->name();
        EXPECT_TRUE(right_kind(*c, o)) << model.name() << ": " << c->name() << " is a " << o->metaObject()->className();
    }
    EXPECT_TRUE(b->unbound().empty());
}

bool inside(const QWidget& inner, const QWidget& outer) {
    const QRect r(inner.mapTo(&outer, QPoint(0, 0)), inner.size());
    return outer.rect().contains(r);
}

class CapacityViewsTest : public ::testing::Test {
protected:
    CapacityViewsTest() : program(platform) {
        register_views(views);
        platform.printer_names = {"Office Laser"};
    }
    ~CapacityViewsTest() override { opened.clear(); }

    template <class F>
    QWidget& open() {
        F& model = program.form<F>();
        opened.emplace_back(views.create(model, program));
        QWidget& w = *opened.back();
        w.show();
        test::settle();
        return w;
    }

    template <class W>
    static W& child(QWidget& view, const char* name) {
        W* w = view.findChild<W*>(name);
        EXPECT_NE(w, nullptr) << name;
        if (w == nullptr) throw std::runtime_error(name);
        return *w;
    }

    static void type_into(QWidget& view, const char* name, const QString& text) {
        auto& box = child<QLineEdit>(view, name);
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, text);
    }

    static void click(QWidget& view, const char* name) {
        QTest::mouseClick(&child<QAbstractButton>(view, name), Qt::LeftButton);
        test::settle();
    }

    static bool shown(QWidget& view, const char* name) { return !child<QWidget>(view, name).isHidden(); }

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

    test::FakePlatform platform;
    windows::Program program;
    ViewRegistry views;
    std::vector<std::unique_ptr<QWidget>> opened;
};

// A window of a work area of 1280 x 800 holds each of them whole.
const QSize kWorkArea(1280, 800);

TEST_F(CapacityViewsTest, EachWindowHasItsOwnViewThatFits) {
    for (const char* name : {"Form9", "Form10", "Form11"}) EXPECT_TRUE(views.has(name)) << name;
    QWidget& v9 = open<windows::Form9>();
    EXPECT_STREQ(v9.metaObject()->className(), "tv::gui::CapacityView");
    QWidget& v10 = open<windows::Form10>();
    EXPECT_STREQ(v10.metaObject()->className(), "tv::gui::DiagramView");
    QWidget& v11 = open<windows::Form11>();
    EXPECT_STREQ(v11.metaObject()->className(), "tv::gui::SaView");
    for (QWidget* v : {&v9, &v10, &v11}) {
        const QSize least = v->minimumSizeHint();
        EXPECT_TRUE(least.width() <= kWorkArea.width() && least.height() <= kWorkArea.height())
            << v->windowTitle().toStdString() << ": " << least.width() << " x " << least.height();
    }
}

TEST_F(CapacityViewsTest, TheWizardAtLoad) {
    windows::Form9& f9 = program.form<windows::Form9>();
    QWidget& w = open<windows::Form9>();
    expect_all_bound(w, f9);
    EXPECT_TRUE(shown(w, "Frame1"));
    EXPECT_FALSE(shown(w, "Frame2"));
    EXPECT_FALSE(shown(w, "Frame3"));
    EXPECT_FALSE(child<QPushButton>(w, "Command3").isEnabled());
    EXPECT_FALSE(child<QPushButton>(w, "Command5").isEnabled());
    EXPECT_EQ(child<QLabel>(w, "Label1").text(), "Select Capasity Spectrum File :");
    EXPECT_EQ(child<QLabel>(w, "Label4").text(), "g(user unit)  =");
    EXPECT_EQ(child<QLineEdit>(w, "T1").text(), "9810");
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
    EXPECT_EQ(popup.actions().front()->text(), "Copy to Clipboard");
    test::save_shot(w, "Form9_capacity_empty");
}

TEST_F(CapacityViewsTest, TheSampleRunsThroughThePages) {
    windows::Form9& f9 = program.form<windows::Form9>();
    QWidget& w = open<windows::Form9>();
    const QSize page0 = w.sizeHint();
    type_into(w, "Text1", QString::fromStdString(kSample));
    click(w, "Command2");
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_GT(f9.Fg.rows(), 20);
    EXPECT_TRUE(child<QPushButton>(w, "Command3").isEnabled());
    test::save_shot(w, "Form9_capacity");

    click(w, "Command3");
    EXPECT_EQ(f9.pageIndex, 1);
    EXPECT_FALSE(shown(w, "Frame1"));
    EXPECT_TRUE(shown(w, "Frame2"));
    EXPECT_FALSE(shown(w, "frame2_internal"));
    // The pages share one place: the window keeps its size from page to page.
    EXPECT_EQ(w.sizeHint(), page0);
    click(w, "Command6");
    click(w, "Command7");
    EXPECT_TRUE(shown(w, "frame2_internal"));
    // The chart and the Sa table both fit in the window as it is.
    EXPECT_TRUE(inside(child<QWidget>(w, "picContainer"), w));
    EXPECT_TRUE(inside(child<QWidget>(w, "Command8"), w));
    auto& scroll = child<QScrollBar>(w, "HScroll1");
    auto& viewport = child<PictureView>(w, "picNemodar1");
    // The scroll bar stands right under the plot's viewport.
    EXPECT_EQ(scroll.mapTo(&w, QPoint(0, 0)).x(), viewport.mapTo(&w, QPoint(0, 0)).x());
    EXPECT_EQ(scroll.width(), viewport.width());
    test::save_shot(w, "Form9_demand");

    click(w, "Command3");
    EXPECT_EQ(f9.pageIndex, 2);
    EXPECT_TRUE(shown(w, "Frame3"));
    EXPECT_FALSE(shown(w, "Frame2"));
    click(w, "Command9");
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_FALSE(child<QLineEdit>(w, "Re1").text().isEmpty());
    EXPECT_FALSE(child<QLineEdit>(w, "Re4").text().isEmpty());
    EXPECT_EQ(child<QLabel>(w, "vahed").text(), "mm");
    EXPECT_TRUE(child<QPushButton>(w, "Command3").isEnabled());
    test::save_shot(w, "Form9_calculated");

    click(w, "Command5");
    EXPECT_EQ(f9.pageIndex, 1);
    EXPECT_TRUE(shown(w, "Frame2"));
    EXPECT_FALSE(shown(w, "Frame3"));
}

TEST_F(CapacityViewsTest, ARightClickOnTheTableOffersTheCopy) {
    QWidget& w = swept_sample();
    auto& table = child<QTableView>(w, "Fg3");
    auto& popup = child<QMenu>(w, "menu_file");
    // A left click shows nothing.
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, QPoint(40, 40));
    test::settle();
    EXPECT_FALSE(popup.isVisible());
    QTest::mouseClick(table.viewport(), Qt::RightButton, {}, QPoint(40, 40));
    test::settle();
    ASSERT_TRUE(popup.isVisible());
    QAction* copy = popup.actions().front();
    EXPECT_EQ(copy->objectName(), "copy");
    platform.clipboard.clear();
    copy->trigger();
    popup.close();
    test::settle();
    // One row was clicked: the header line and that row, each opening with a tab.
    ASSERT_FALSE(platform.clipboard.empty());
    EXPECT_EQ(platform.clipboard.front(), '\t');
    EXPECT_NE(platform.clipboard.find("\r\n\t"), std::string::npos);
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
    EXPECT_TRUE(f11.Option3.value());
    EXPECT_FALSE(f11.Option1.value());
    test::save_shot(w, "Form11");
}

}  // namespace
}  // namespace tv::gui
