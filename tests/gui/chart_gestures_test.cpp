// The measures charts, the ADRS and pushover diagrams and the Fourier chart grow with their
// windows, zoom about the pointer, pan with a drag and save the numbers they draw.
#include <gtest/gtest.h>

#include <QAction>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>

#include "gui/bind/old_units.h"
#include "gui/bind/picture_view.h"
#include "gui_fixture.h"
#include "support/files.h"
#include "windows/coefficient/nsp_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/fourier/fourier_window.h"
#include "windows/measures/measures_window.h"
#include "windows/project/record_input_window.h"

namespace tv::gui {
namespace {

void wheel_in(QWidget* w, QPointF at) {
    QWheelEvent e(at, w->mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                  false);
    QCoreApplication::sendEvent(w, &e);
    test::settle();
}

void drag(QWidget* w, QPointF from, double dx) {
    QMouseEvent press(QEvent::MouseButtonPress, from, w->mapToGlobal(from), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(w, &press);
    const QPointF to = from + QPointF(dx, 0);
    QMouseEvent move(QEvent::MouseMove, to, w->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(w, &move);
    QMouseEvent release(QEvent::MouseButtonRelease, to, w->mapToGlobal(to), Qt::LeftButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(w, &release);
    test::settle();
}

class ChartGestures : public test::RecordRoadTest {
protected:
    windows::Form1& show_record() {
        open_record();
        click(program.form<windows::Form1>(), "Command2");
        return program.form<windows::Form1>();
    }
    /// What a chart's Save Data writes.
    std::string saved(QWidget& card) {
        platform.file_answers = {scratch.file("data.csv")};
        card.findChild<QAction*>("saveChartData")->trigger();
        return test::slurp(scratch.file("data.csv"));
    }
    /// The window maximised: the chart grew, and its labels and the tables are whole.
    void maximise(const forms::Form& form, const QWidget& chart) {
        // From its smallest: a window opened wider than the frame would shrink when maximised.
        platform.window_of(form)->resize(platform.window_of(form)->minimumSizeHint());
        test::settle();
        const QSize before = chart.size();
        platform.window_of(form)->showMaximized();
        test::settle();
        EXPECT_GE(chart.width(), before.width());
        EXPECT_GT(chart.width() + chart.height(), before.width() + before.height() + 100);
        test::expect_labels_inside_strips(*platform.view_of(form));
        test::expect_tables_whole(*platform.view_of(form));
        test::save_shot(*frame, form.name() + "_maximised");
    }
    test::TempDir scratch;
};

TEST_F(ChartGestures, TheMeasuresChartsGrowAndSaveWhatTheyDraw) {
    show_record();
    click(program.form<windows::Form1>(), "cmdMeasures");
    auto& m = program.form<windows::MeasuresWindow>();
    auto* plot = in<PictureView>(m, "VelocityPlot");
    maximise(m, *plot);
    const std::string data = saved(*plot);
    EXPECT_EQ(data.substr(0, data.find('\r')), "Time (s),X velocity (m/s),Y velocity (m/s)");
    const auto& f1 = program.form<windows::Form1>();
    EXPECT_EQ(std::count(data.begin(), data.end(), '\n'), 1 + f1.lastLine - f1.firstLine + 1);

    // The wheel at the frame's middle zooms the time of all four charts about it, a drag to the
    // right goes back in time, a double-click shows the whole record again.
    const QPointF middle(plot->width() * (950 + (m.VelocityPlot.width() - 1100) / 2) / m.VelocityPlot.width(),
                         plot->height() / 2.0);
    wheel_in(plot, middle);
    EXPECT_DOUBLE_EQ(m.time_view_span(), 0.8);
    EXPECT_NEAR(m.time_view_from(), 0.1, 1e-9);
    drag(in<PictureView>(m, "HusidPlot"), middle, 40);
    EXPECT_LT(m.time_view_from(), 0.1);
    test::expect_labels_inside_strips(*platform.view_of(m));
    test::save_shot(*frame, "frmMeasures_zoomed");
    QTest::mouseDClick(plot, Qt::LeftButton, Qt::NoModifier, middle.toPoint());
    EXPECT_EQ(m.time_view_span(), 1);
}

TEST_F(ChartGestures, TheFourierChartZoomsAboutThePointerAndPans) {
    auto& f1 = show_record();
    click(f1, "Command1");
    auto& f12 = program.form<windows::Form12>();
    program.run([&] { f12.Text1.set_text("20"), f12.Command1.press(); });
    ASSERT_TRUE(platform.runtime_errors.empty());
    auto* plot = in<PictureView>(f12, "picNemodar");
    const auto& pic = f12.chart.picNemodar;
    const double x = 2000;  // twips of the viewport
    const double px_per_twip = twips_to_px(1.0, logical_dpi(plot)) * plot->stretch().width();
    const QPointF at(x * px_per_twip, plot->height() / 2.0);
    wheel_in(plot, at);
    EXPECT_EQ(f12.chart.Slider1.value(), 2);
    // The point under the pointer stays within a scroll step.
    EXPECT_NEAR((x - pic.left()) / pic.width(), x / (pic.width() / 2), 100 / pic.width());
    const int scrolled = f12.chart.HScroll1.value();
    drag(plot, at, -1050 * px_per_twip);  // whole steps of 100 twips
    EXPECT_EQ(f12.chart.HScroll1.value(), scrolled + 10);
    EXPECT_EQ(pic.left(), -100.0 * (scrolled + 10));
}

TEST_F(ChartGestures, ThePushoverDiagramZoomsAndTheProceduresDiagramGrows) {
    const std::string curve = scratch.write("curve.txt", test::kSofteningListing);
    auto& f6 = program.form<windows::Form6>();
    program.run([&] { f6.show(), f6.Text1.set_text(curve); });
    click(f6, "Command2");
    click(f6, "Command3");
    auto* plot = in<PictureView>(f6, "picDiagram");
    auto* strip = in<PictureView>(f6, "xBar");
    const QPointF at(plot->width() / 3.0, plot->height() / 2.0);
    wheel_in(plot, at);
    EXPECT_EQ(plot->x_zoom(), 2);
    EXPECT_EQ(strip->x_zoom(), 2);
    EXPECT_NEAR((at.x() + plot->x_shift()) / 2, at.x(), 1e-9);
    drag(plot, at, -30);
    EXPECT_NEAR(plot->x_shift(), at.x() + 30, 1e-9);
    test::expect_labels_inside_strips(*platform.view_of(f6));
    test::save_shot(*platform.view_of(f6), "pushover_zoomed");
    QTest::mouseDClick(plot, Qt::LeftButton, Qt::NoModifier, at.toPoint());
    EXPECT_EQ(plot->x_zoom(), 1);

    click(f6, "cmdNsp");
    auto& nsp = program.form<windows::NspWindow>();
    program.run([&] { nsp.txtW.set_text("10000"); });
    click(nsp, "cmdCalculate");
    auto* adrs = in<PictureView>(nsp, "picAdrs");
    maximise(nsp, *adrs);
    EXPECT_EQ(saved(*adrs).rfind("Capacity Sd (cm),Capacity Sa (g),Coefficient method demand Sd (cm),", 0), 0u);
}

}  // namespace
}  // namespace tv::gui
