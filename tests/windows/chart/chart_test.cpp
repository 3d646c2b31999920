#include "windows/chart/chart.h"

#include <gtest/gtest.h>

#include <string>

#include "support/errors.h"
#include "support/fake_platform.h"
#include "support/files.h"
#include "support/form_dump.h"
#include "support/page_dump.h"
#include "text/number_text.h"
#include "windows/program.h"

namespace {

using tv::forms::DrawOp;
using tv::text::DoubleArray;
using tv::windows::Chart;
using tv::windows::ChartOptions;
using tv::test::dump;
using tv::test::expect_state;
namespace cc = tv::compute::chart;

// A record window in little: the boxes the chart reads and one chart.
class RecordWindow : public tv::windows::Window {
public:
    RecordWindow(tv::forms::App& app, ChartOptions extra = {})
        : Window(app, "Form1", "Input file parameters (1)"),
          xstep(text_box("xstep", "0.005")),
          xvalue(text_box("xvalue")),
          chart(*this, options(std::move(extra))) {}

    tv::forms::TextBox& xstep;
    tv::forms::TextBox& xvalue;
    double curMaxX = 0, curMaxY = 0, scaleFactor = 1;
    DoubleArray record;
    int replots = 0;
    Chart chart;

private:
    ChartOptions options(ChartOptions o) {
        o.peak_fields = [this] { return std::pair{curMaxX, curMaxY}; };
        o.time_step = [this] { return tv::text::val(xstep.text()); };
        o.value_peak = [this] { return tv::text::val(xvalue.text()); };
        o.value_scale = [this] { return scaleFactor; };
        o.readout.x_step = [this] { return tv::text::to_double(xstep.text()); };
        o.replot = [this] {
            ++replots;
            chart.plot(record, tv::text::val(xstep.text()), true);
        };
        o.value_at = [this](long i) { return record(i); };
        return o;
    }
};

ChartOptions record_options() {
    ChartOptions o;
    o.range = cc::RangeRule::PeakFields;
    o.scale_to_peak = true;
    o.readout.label = "Label8";
    o.readout.caption = "0 Sec";
    return o;
}

ChartOptions spectrum_options() {
    ChartOptions o;
    o.range = cc::RangeRule::Largest;
    o.value_steps = cc::ValueSteps::Tenth;
    o.readout.label = "Label7";
    o.readout.x_text = "T(Period): ";
    o.readout.y_text = ", B.A: ";
    return o;
}

// A record of 3500 lines: a slow wave whose largest sample, 0.75, stands at line 1000.
DoubleArray wave(long upper) {
    DoubleArray a(upper);
    for (long i = 1; i <= upper; ++i) a(i) = 0.5 * ((i % 100) / 100.0) - 0.25;
    if (upper >= 1000) a(1000) = 0.75;
    return a;
}

std::vector<DrawOp> of_kind(const tv::forms::PictureBox& p, DrawOp::Kind kind, int color = -2) {
    std::vector<DrawOp> out;
    for (const auto& op : p.ops())
        if (op.kind == kind && (color == -2 || op.color == color)) out.push_back(op);
    return out;
}

class ChartTest : public ::testing::Test {
protected:
    tv::test::FakePlatform platform;
    tv::windows::Program program{platform};
};

TEST_F(ChartTest, ControlsStandUnderTheirNames) {
    RecordWindow w(program, record_options());
    // Every control by its name; the scale 1X, the read-out "0 Sec", the scroll bar off.
    expect_state(dump(w), "chart_opened");
    EXPECT_EQ(w.chart.picNemodar1.width(), 9165);
    EXPECT_EQ(w.chart.picNemodar.container(), &w.chart.picNemodar1);
    EXPECT_EQ(RecordWindow(program, spectrum_options()).find("Label7")->name(), "Label7");
}

TEST_F(ChartTest, SliderWidensThePlotAndScrollSlidesItAndTheLabelsButKeepsTheCurve) {
    // The window's own strips go over the chart's, after them.
    ChartOptions o = record_options();
    const RecordWindow* seen = nullptr;
    std::vector<DrawOp> labels_then;
    o.scrolled = [&] { labels_then = of_kind(seen->chart.PicxSxale, DrawOp::Kind::Text); };
    RecordWindow w(program, o);
    seen = &w;
    w.curMaxX = 1.5;
    w.record = wave(3500);
    w.chart.plot(w.record, 0.005, true);

    w.chart.Slider1.set_value(4);
    EXPECT_EQ(w.replots, 1);
    EXPECT_EQ(w.chart.picNemodar.width(), 36660);
    // "X Axis Scale :4X", the scroll bar on to 275; 17.5 s on 36660 twips: every second labelled.
    expect_state(dump(w), "chart_slider_4");
    expect_state(dump(w.chart.PicxSxale), "chart_labels_4x");
    auto curve = w.chart.picNemodar.ops().size();
    auto revision = w.chart.picNemodar.revision();

    w.chart.HScroll1.user_scroll(50);
    EXPECT_EQ(w.chart.picNemodar.left(), -5000);
    // Every label 5000 twips left of where it stood.
    expect_state(dump(w.chart.PicxSxale), "chart_labels_4x_scrolled");
    ASSERT_FALSE(labels_then.empty());
    EXPECT_EQ(labels_then.front().x1, of_kind(w.chart.PicxSxale, DrawOp::Kind::Text).front().x1);
    EXPECT_EQ(w.chart.picNemodar.ops().size(), curve);
    EXPECT_EQ(w.chart.picNemodar.revision(), revision);

    // A new plot puts the scroll bar back to 0, and the plot with it.
    w.chart.plot(w.record, 0.005, true);
    EXPECT_EQ(w.chart.HScroll1.value(), 0);
    EXPECT_EQ(w.chart.picNemodar.left(), 0);

    w.chart.Slider1.set_value(1);
    EXPECT_EQ(w.chart.picNemodar.width(), 9165);
    // "X Axis Scale :1X", the scroll bar off, to 0.
    expect_state(dump(w), "chart_slider_1");
}

TEST_F(ChartTest, AllZeroRecordsAndASingleSample) {
    RecordWindow w(program, record_options());
    w.record = DoubleArray(100);
    w.curMaxX = 0.3;
    EXPECT_EQ(tv::test::error_of([&] { w.chart.plot(w.record, 0.005, true); }), 11);
    // No peaks either: 0 / 0 is the overflow. Through the dispatcher it is a run-time error.
    w.curMaxX = 0;
    program.run([&] { w.chart.plot(w.record, 0.005, true); });
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].first, 6);

    // An all-zero spectrum gets a range of 0: no factor is worked out, so no division by zero.
    RecordWindow s(program, spectrum_options());
    s.record = DoubleArray(100);
    program.run([&] { s.chart.plot(s.record, 0.01, true); });
    EXPECT_EQ(s.chart.range(), 0);
    EXPECT_EQ(platform.runtime_errors.size(), 1u);

    // One sample draws no curve.
    w.curMaxX = 0.5;
    w.record = DoubleArray(1);
    w.record(1) = 0.5;
    w.chart.plot(w.record, 0.005, true);
    EXPECT_TRUE(of_kind(w.chart.picNemodar, DrawOp::Kind::Line, 255).empty());
    EXPECT_EQ(of_kind(w.chart.picNemodar, DrawOp::Kind::Line, -1).size(), 1u);
}

TEST_F(ChartTest, ReadOutShowsTimeAndValueAndKeepsTheLastValue) {
    RecordWindow w(program, record_options());
    w.curMaxX = 1.5;
    w.record = wave(3500);
    w.chart.plot(w.record, 0.005, true);
    auto& p = w.chart.picNemodar;

    p.MouseMove(0, 0, 1000.4, 0.2);
    // "t: 5.00 , Accel: 0.75  "; Line2 at x 1000.4 from -3300 to 3300, Line3 to 18330 at the
    // array's value 0.75, not at the drawn (doubled) curve.
    expect_state(dump(w), "chart_read_out");

    p.MouseMove(0, 0, 1010.5, 0);  // index 1010 (ties to even): 0.5 x 0.1 - 0.25
    EXPECT_EQ(w.chart.readout->caption(), "t: 5.05 , Accel: -0.20  ");

    // Beyond the end and left of 0: the value stays, the time follows, nothing is reported.
    p.MouseMove(0, 0, 3600, 0);
    EXPECT_EQ(w.chart.readout->caption(), "t: 18.00 , Accel: -0.20  ");
    p.MouseMove(0, 0, -4, 0);
    EXPECT_EQ(w.chart.readout->caption(), "t: -0.02 , Accel: -0.20  ");
    EXPECT_DOUBLE_EQ(w.chart.readout_value(), -0.2);

    // A bad xstep fails the strict conversion: the caption stays as it was.
    w.xstep.set_text("0.005s");
    p.MouseMove(0, 0, 10, 0);
    EXPECT_EQ(w.chart.readout->caption(), "t: -0.02 , Accel: -0.20  ");
    EXPECT_FLOAT_EQ(w.chart.Line2.x1(), 10.f);
    EXPECT_TRUE(platform.runtime_errors.empty());
}

TEST_F(ChartTest, ComparisonDrawsTheTargetOnTheAveragesScale) {
    ChartOptions o = spectrum_options();
    o.only_red_sets_range = true;
    RecordWindow w(program, o);
    DoubleArray average(10), target(10);
    for (long i = 1; i <= 10; ++i) {
        average(i) = 0.5;
        target(i) = 2.0;
    }
    average(3) = 1.0;
    w.chart.plot(average, 0.01, true, 255);
    w.chart.plot(target, 0.01, true, 50);
    EXPECT_DOUBLE_EQ(w.chart.range(), 1.2);
    // Nine segments of each; the target's (ink 50), 2.0 on a range of 1.2, above the top edge.
    expect_state(dump(w.chart.picNemodar), "chart_comparison");
}

TEST_F(ChartTest, FourierRepeatsSegmentsAndMarksPeaks) {
    ChartOptions o = spectrum_options();
    o.value_steps = cc::ValueSteps::Fourier;
    o.readout.label.clear();
    double repeat = 2;
    bool on = true;
    o.marks.repeat = [&] { return repeat; };
    o.marks.on = [&] { return on; };
    o.marks.peak = [](long p) { return p == 1 ? 3.0 : 7.0; };
    o.marks.width = [] { return 0.5; };
    RecordWindow w(program, o);
    EXPECT_EQ(w.find("Label7"), nullptr);
    DoubleArray amp(5);
    for (long i = 1; i <= 5; ++i) amp(i) = static_cast<double>(i);
    w.chart.plot(amp, 0.05, true);

    auto& p = w.chart.picNemodar;
    // Four segments twice each (ink 255); one mark (ink 270) from 2.5 to 3 at the peak's 3. Range
    // 6: labels from Int(3) = 3 tenths upward. Every tenth would put 58 labels on the strip, one
    // over the next, so they stand at a multiple of the tenth with room for the text (a tenth
    // stands 0.2 apart), up to 6.
    expect_state(dump(p) + dump(w.chart.PicySxale), "chart_fourier");

    repeat = 0;
    w.chart.plot(amp, 0.05, true);
    EXPECT_TRUE(of_kind(p, DrawOp::Kind::Line, 255).empty());
}

TEST_F(ChartTest, SavedDataHoldsTheNumbersDrawn) {
    ChartOptions o = record_options();
    o.x_title = "t (s)";
    o.y_title = "a (g)";
    RecordWindow w(program, o);
    w.curMaxX = 1.5;
    w.curMaxY = 0.9;
    w.xstep.set_text("0.02");
    w.record = DoubleArray(4);
    w.record(1) = 0.1;
    w.record(2) = -0.3;
    w.record(3) = 0.2;
    w.record(4) = 0.15;
    w.chart.plot(w.record, 0.02, true);

    // k = (1.8 / 1.2) / 0.3 = 5; index 1 is drawn at 0, as the curve starts there.
    const std::string csv = "t (s),a (g)\r\n0.02,0\r\n0.04,-1.5\r\n0.06,1\r\n0.08,0.75\r\n";
    EXPECT_EQ(tv::windows::chart_csv(w.chart.drawn_data()), csv);
    const auto red = of_kind(w.chart.picNemodar, DrawOp::Kind::Line, 255);
    ASSERT_EQ(red.size(), 3u);
    EXPECT_FLOAT_EQ(red[2].y2, w.chart.picNemodar.y_to_twips(0.75));

    tv::test::TempDir dir;
    platform.file_answers.push_back(dir.file("wave"));
    tv::windows::save_chart_data(platform, w.chart.drawn_data());
    EXPECT_EQ(tv::test::slurp(dir.file("wave.csv")), csv);

    // Drawn over by the window: nothing of the curve is left to save.
    w.chart.picNemodar.cls();
    EXPECT_TRUE(w.chart.drawn_data().empty());
}

TEST_F(ChartTest, WheelDragAndDoubleClickMoveTheScaleAndTheBar) {
    RecordWindow w(program, record_options());
    w.curMaxX = 1.5;
    w.curMaxY = 0.9;
    w.record = wave(3500);
    w.chart.plot(w.record, 0.005, true);

    // Zoomed in about the middle of the viewport: 2X, the middle of the record stays there.
    w.chart.zoom(1, 4582.5);
    EXPECT_EQ(w.chart.Slider1.value(), 2);
    EXPECT_EQ(w.chart.Label6.caption(), "X Axis Scale :2X");
    EXPECT_EQ(w.chart.HScroll1.value(), 46);
    EXPECT_EQ(w.chart.picNemodar.left(), -4600);

    // A drag of 250 twips to the left: the plot follows by whole steps of the bar.
    w.chart.pan(-250);
    EXPECT_EQ(w.chart.HScroll1.value(), 49);
    EXPECT_EQ(w.chart.picNemodar.left(), -4900);

    w.chart.zoom(20, 0);
    EXPECT_EQ(w.chart.Slider1.value(), 10);

    // Back to the window's own scale.
    w.chart.reset_view();
    EXPECT_EQ(w.chart.Slider1.value(), 1);
    EXPECT_EQ(w.chart.HScroll1.value(), 0);
    EXPECT_EQ(w.chart.picNemodar.width(), 9165);
    EXPECT_EQ(w.chart.picNemodar.left(), 0);
}

}  // namespace
