// Each window's view: every control of the model has a widget of its kind, the views look as
// they should (screenshots under <build>/gui-screenshots), charts take the room they are given,
// busy panels cover them, the Persian texts run right to left.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
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
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTextLayout>

#include "gui/bind/mnemonics.h"
#include "gui/bind/old_units.h"
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

TEST_F(ViewsTest, MainFrame) {
    auto& w = open<windows::frmMain>();
    auto* main = qobject_cast<QMainWindow*>(&w);
    ASSERT_NE(main, nullptr);
    EXPECT_NE(qobject_cast<QMdiArea*>(main->centralWidget()), nullptr);
    const QList<QAction*> top = main->menuBar()->actions();
    QStringList titles;
    for (QAction* a : top) titles << a->text();
    ASSERT_EQ(titles, QStringList({"&Project", "&Report", "&Window", "&About"}));
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
        // A window of a work area of 1280 x 800 holds the view whole.
        const QSize least = w.minimumSizeHint();
        EXPECT_TRUE(least.width() <= 1280 && least.height() <= 800)
            << window << ": " << least.width() << " x " << least.height();
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
    auto each = [&]<class... F>() { (check.operator()<F>(), ...); };
    using namespace windows;
    each.operator()<frmMain, xhelp, Form1, Form14, Form2, Form3, Form4, Form12, Form13,
                    MeasuresWindow, Form6, Form7, Form8, NspWindow, Form9, Form10, Form11,
                    frmCurveCapacity>();
}

// The record's plot sits in its viewport, at the viewport's size, until Show Diagram widens it.
TEST_F(ViewsTest, RecordInputAtLoad) {
    open<windows::Form1>();
    auto* viewport = find<PictureView>("picNemodar1");
    auto* plot = find<PictureView>("picNemodar");
    EXPECT_EQ(plot->parentWidget(), viewport);
    EXPECT_EQ(plot->size(), viewport->size());
}

TEST_F(ViewsTest, DesignSpectrumFromFileScrollBarAndChart) {
    auto& f2 = program.form<windows::Form2>();
    auto& w = open<windows::Form2>();
    // "From File" greys the options out, and back.
    tick(find<QCheckBox>("Check1"));
    EXPECT_EQ(f2.Check1.value(), 1);
    EXPECT_FALSE(find<QGroupBox>("Frame2")->isEnabled());
    EXPECT_FALSE(find<QRadioButton>("Option3")->isEnabled());
    EXPECT_TRUE(find<QPushButton>("Command3")->isEnabled());
    tick(find<QCheckBox>("Check1"));
    EXPECT_TRUE(find<QRadioButton>("Option3")->isEnabled());
    // The scroll bar stands under the plot's viewport, no wider.
    auto* viewport = find<PictureView>("picNemodar1");
    auto* scroll = find<QScrollBar>("HScroll1");
    EXPECT_EQ(scroll->width(), viewport->width());
    EXPECT_EQ(scroll->mapTo(&w, QPoint()).x(), viewport->mapTo(&w, QPoint()).x());
    expect_chart_takes_spare_room();
}

TEST_F(ViewsTest, ResponseSpectrumBusyPanel) {
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

TEST_F(ViewsTest, ComparisonPersianCaptionAndColours) {
    auto& w = open<windows::Form4>();

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

// The response spectrum chart's legend names the RotD curves that were calculated, and only then.
TEST_F(ViewsTest, RotDLegendShowsOnlyTheCalculatedCurves) {
    auto& f3 = program.form<windows::Form3>();
    open<windows::Form3>();
    auto* legend = find<QLabel>("chartLegend");
    ASSERT_NE(legend, nullptr);
    EXPECT_TRUE(legend->isHidden());
    f3.rotd50Calculated = true;
    find<PictureView>("picNemodar")->repaint();
    test::settle();
    EXPECT_FALSE(legend->isHidden());
    EXPECT_TRUE(legend->text().contains("RotD50"));
    EXPECT_FALSE(legend->text().contains("RotD100"));
}

TEST_F(ViewsTest, FourierOmegaCountAndChart) {
    auto& f12 = program.form<windows::Form12>();
    open<windows::Form12>();

    // "No. Omega=" opens the count and Find Omega.
    f12.Check1.set_enabled(true);
    tick(find<QCheckBox>("Check1"));
    EXPECT_TRUE(find<QLineEdit>("Text8")->isEnabled());
    EXPECT_TRUE(find<QPushButton>("Command5")->isEnabled());
    tick(find<QCheckBox>("Check1"));
    EXPECT_FALSE(find<QLineEdit>("Text8")->isEnabled());

    // The checkbox stands in the caption column, right-aligned like the captions below it.
    auto* box = find<QCheckBox>("Check1");
    auto* caption = find<QLabel>("captionText9");
    EXPECT_LE(std::abs(box->geometry().right() - caption->geometry().right()), 2);
    expect_chart_takes_spare_room();
}

TEST_F(ViewsTest, MeasuresPreviewWithProcessingOffSaysSo) {
    open<windows::MeasuresWindow>();
    EXPECT_EQ(find<QComboBox>("FilterKind")->count(), 4);
    // Processing off: Preview says so instead of processing.
    QTest::mouseClick(find<QPushButton>("Preview"), Qt::LeftButton);
    test::settle();
    EXPECT_TRUE(find<QLabel>("Message")->text().startsWith("Processing is off"));
    EXPECT_FALSE(find<QPushButton>("Undo")->isEnabled());
}

// The capacity spectrum wizard and its diagram: the popup of the calculation table waits out of
// sight, and the shipped sample runs through the wizard's pages by the widgets.
TEST_F(ViewsTest, CapacityWizardAtLoad) {
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

TEST_F(ViewsTest, CapacityDiagramOfTheSample) {
    platform.printer_names = {"Office Laser"};
    // The sample read, its demand spectrum made and swept on the last page, then Next: the diagram.
    QWidget& wizard = open<windows::Form9>();
    type_into(wizard, "Text1", QStringLiteral(TV_SOURCE_DIR "/samples/capacity_sample.txt"));
    for (const char* button : {"Command2", "Command3", "Command6", "Command7", "Command3", "Command9", "Command3"})
        click(wizard, button);
    ASSERT_TRUE(program.is_loaded<windows::Form10>());
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
}

// The coefficient method's views: the worked curve is fitted and handed on through the widgets.
TEST_F(ViewsTest, TEffectiveWindowAtLoad) {
    windows::Form6& f6 = program.form<windows::Form6>();
    QWidget& w = open<windows::Form6>();
    EXPECT_EQ(w.windowTitle(), "Calculate T-Effective");
    // The diagram and its strips stand inside the printed area, at the model's size.
    auto inside = [](const QWidget& inner, const QWidget& outer) {
        return outer.rect().contains(QRect(inner.mapTo(&outer, QPoint(0, 0)), inner.size()));
    };
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

TEST_F(ViewsTest, TheMethodsSideBySideOpenFromTheFittedCurve) {
    // The worked curve read by Start and its yield point found by Auto Yeld Point.
    QWidget& v6 = open<windows::Form6>();
    type_into(v6, "Text1", test::kSofteningCurve);
    for (const char* button : {"Command2", "Command3", "cmdNsp"}) click(v6, button);
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
