// Show Diagram, Next and Back of the record window.
#include "project_fixture.h"

#include "windows/spectra/design_spectrum_window.h"

namespace tv::test {
namespace {

class RecordWindowTest : public ProjectTest {
protected:
    void open_simple(const std::string& count = "1") {
        x = write("x.txt", "head\n0.1\n-0.4\n0.2\n");
        y = write("y.txt", "head\n0.3\n0.1\n-0.2\n");
        platform.input_answers = {count, "2"};
        open_record(x, y);
    }
    void press(forms::CommandButton& b) { program.run([&] { b.press(); }); }
    std::string x, y;
};

TEST_F(RecordWindowTest, ShowDiagramScalesIntoTheArraysAndHidesTheOtherRows) {
    open_simple();
    windows::Form1& f = form1();
    program.run([&] { f.xscale.set_text("2"); });
    press(f.Command2);
    ASSERT_TRUE(platform.runtime_errors.empty());
    EXPECT_EQ(f.Grid1.text(3, 1), "-0.8");
    EXPECT_EQ(f.Grid2.text(2, 1), "0.6");
    EXPECT_TRUE(f.Grid1.row_hidden(1));
    EXPECT_FALSE(f.Grid1.row_hidden(2));
    const auto& ax = state().accelX1;
    ASSERT_EQ(ax.ubound(), 4);
    EXPECT_EQ(ax(0), 0.0);
    EXPECT_EQ(ax(1), 0.0);  // below the first line
    EXPECT_EQ(ax(3), -0.8);
    EXPECT_EQ(state().baseAccelY1(4), -0.4);
    // The peaks shown stay unscaled, the project peak is the doubled larger one.
    EXPECT_EQ(f.Text1.text(), "0.4");
    EXPECT_EQ(f.Text2.text(), "0.3");
    EXPECT_DOUBLE_EQ(state().peakAccel, 0.8);
    EXPECT_TRUE(f.xnext.enabled());
    EXPECT_TRUE(f.Command2.enabled());
}

TEST_F(RecordWindowTest, AChangedPeakRescalesBothComponents) {
    open_simple();
    windows::Form1& f = form1();
    program.run([&] { f.xvalue.set_text("0.8"); });
    press(f.Command2);
    EXPECT_EQ(f.Grid1.text(3, 1), "-0.8");
    EXPECT_EQ(f.Grid2.text(2, 1), "0.6");
    EXPECT_EQ(f.Text1.text(), "0.8");
    EXPECT_EQ(f.Text2.text(), "0.6");
}

TEST_F(RecordWindowTest, APeakEqualToTheSmallerComponentCountsAsUnchanged) {
    open_simple();
    windows::Form1& f = form1();
    program.run([&] { f.xvalue.set_text("0.3"); });
    press(f.Command2);
    EXPECT_EQ(f.Grid1.text(3, 1), "-0.4");
}

TEST_F(RecordWindowTest, WithEqualPeaksAndNoScalingATypedPeakGoesToX) {
    platform.input_answers = {"1", "2"};
    open_record(write("x.txt", "head\n0.1\n-0.4\n0.2\n"), write("y.txt", "head\n0.4\n0.1\n-0.2\n"));
    windows::Form1& f = form1();
    program.run([&] {
        f.Xfline.set_text("0");
        f.xvalue.set_text("0.8");
    });
    press(f.Command2);
    EXPECT_EQ(f.Text1.text(), "0.8");
    EXPECT_EQ(f.Text2.text(), "0.4");
}

TEST_F(RecordWindowTest, ALastLineBeyondTheFileIsRefusedAndShowDiagramStaysDisabled) {
    open_simple();
    windows::Form1& f = form1();
    program.run([&] { f.xeline.set_text("9"); });
    press(f.Command2);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Error In First line or Last line");
    EXPECT_EQ(platform.messages[0].title, "Error");
    EXPECT_EQ(platform.messages[0].icon, forms::MsgIcon::Critical);
    EXPECT_FALSE(f.Command2.enabled());
    // The draw options run the same routine and so recover.
    program.run([&] { f.xeline.set_text("4"); });
    program.run([&] { f.Option4.user_click(); });
    EXPECT_TRUE(f.Command2.enabled());
    EXPECT_EQ(state().accelY1(4), -0.2);
}

TEST_F(RecordWindowTest, ShowDiagramBeforeTheYFileAsksForIt) {
    x = write("x.txt", "0.1\n");
    platform.input_answers = {"1", "1"};
    platform.file_answers = {x};
    open();
    press(form1().Command2);
    ASSERT_EQ(platform.message_texts(), std::vector<std::string>{"enter File y"});
    EXPECT_TRUE(form1().Command2.enabled());
}

TEST_F(RecordWindowTest, FirstLineZeroSkipsTheScalingButKeepsThePeaks) {
    open_simple();
    windows::Form1& f = form1();
    program.run([&] { f.Xfline.set_text("0"); });
    press(f.Command2);
    EXPECT_FALSE(state().accelX1.allocated());
    EXPECT_EQ(f.Text1.text(), "0.4");
    EXPECT_TRUE(platform.runtime_errors.empty());
}

TEST_F(RecordWindowTest, AnEmptiedPeakDividesByZeroAsARunTimeError) {
    open_simple();
    windows::Form1& f = form1();
    program.run([&] { f.xvalue.set_text(""); });
    press(f.Command2);
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(state().accelX1(3), 0.0);  // v of 0 scales the samples to 0 before step 12 fails
}

TEST_F(RecordWindowTest, NextAndBackStepThroughTheRecords) {
    open_simple("2");
    windows::Form1& f = form1();
    program.run([&] { f.xstep.set_text("0.01"); });
    press(f.xnext);  // Next stays disabled until Show Diagram ran
    EXPECT_EQ(state().currentRecord, 1);
    press(f.Command2);
    press(f.xnext);
    EXPECT_EQ(state().currentRecord, 2);
    EXPECT_EQ(state().recordLastLine(1), 4);
    EXPECT_EQ(state().recordFirstLine(1), 2);
    EXPECT_DOUBLE_EQ(state().recordDt(1), 0.01);
    EXPECT_EQ(f.caption(), "Input file parameters (2)");
    EXPECT_TRUE(f.Grid3.visible());
    EXPECT_FALSE(f.Grid1.visible());
    EXPECT_EQ(f.Text1.text(), "");
    EXPECT_EQ(state().componentLetter, "X");
    EXPECT_TRUE(f.xBack.enabled());
    EXPECT_FALSE(f.xnext.enabled());

    std::string x2 = write("x2.txt", "h\n1.5\n-0.5\n"), y2 = write("y2.txt", "h\n0.5\n2.5\n");
    open_record(x2, y2);
    EXPECT_EQ(f.Grid3.rows(), 4);
    EXPECT_EQ(f.Text2.text(), "2.5");
    press(f.Command2);
    EXPECT_EQ(state().accelY2(3), 2.5);

    press(f.xBack);
    EXPECT_EQ(state().currentRecord, 1);
    EXPECT_EQ(f.Text1.text(), "0.4");
    EXPECT_EQ(f.xvalue.text(), "0.4");
    EXPECT_EQ(f.xeline.text(), "4");
    EXPECT_EQ(f.xstep.text(), "0.01");
    EXPECT_FALSE(f.xBack.enabled());
    EXPECT_TRUE(f.Grid1.visible());
}

TEST_F(RecordWindowTest, NextAndBackAcrossThreeRecords) {
    open_simple("3");
    windows::Form1& f = form1();
    program.run([&] { f.xstep.set_text("0.01"); });
    press(f.Command2);
    press(f.xnext);
    ASSERT_EQ(state().currentRecord, 2);

    // Record 2: a changed peak, a shorter last line and its own time step.
    open_record(write("x2.txt", "h\n1.5\n-0.5\n0.25\n"), write("y2.txt", "h\n0.5\n2.5\n0.75\n"));
    program.run([&] {
        f.xvalue.set_text("5");
        f.xeline.set_text("3");
        f.xstep.set_text("0.02");
    });
    press(f.Command2);
    EXPECT_EQ(f.Text1.text(), "3");
    EXPECT_EQ(f.Text2.text(), "5");
    press(f.xnext);
    ASSERT_EQ(state().currentRecord, 3);
    EXPECT_EQ(f.caption(), "Input file parameters (3)");
    EXPECT_TRUE(f.grid5.visible());
    EXPECT_TRUE(f.grid6.visible());
    for (forms::Grid* g : {&f.Grid1, &f.Grid2, &f.Grid3, &f.grid4}) EXPECT_FALSE(g->visible());
    EXPECT_EQ(f.Text1.text(), "");
    EXPECT_EQ(f.Text2.text(), "");
    EXPECT_EQ(f.xvalue.text(), "");
    EXPECT_EQ(state().recordLastLine(2), 3);
    EXPECT_DOUBLE_EQ(state().recordStep(2), 0.02);
    EXPECT_DOUBLE_EQ(state().recordDt(2), 0.02);
    EXPECT_DOUBLE_EQ(state().recordMaxValue(2), 0);  // xvalue is emptied before a middle record is stored
    EXPECT_EQ(state().accelX2.ubound(), 3);

    // Record 3 goes into grid5 and grid6 and the third pair of arrays.
    open_record(write("x3.txt", "h\n-0.6\n0.3\n0.15\n0.1\n"), write("y3.txt", "h\n0.2\n-0.4\n0.1\n0.05\n"));
    EXPECT_EQ(f.grid5.rows(), 6);
    EXPECT_EQ(f.grid6.text(3, 0), "-0.4");
    EXPECT_EQ(f.Text1.text(), "0.6");
    EXPECT_EQ(f.Text2.text(), "0.4");
    EXPECT_EQ(f.xvalue.text(), "0.6");
    program.run([&] { f.xscale.set_text("2"); });
    press(f.Command2);
    EXPECT_EQ(f.grid5.text(2, 1), "-1.2");
    EXPECT_EQ(state().accelX3(2), -1.2);
    EXPECT_EQ(state().accelY3(3), -0.8);
    EXPECT_EQ(state().baseAccelY3(5), 0.1);
    EXPECT_DOUBLE_EQ(state().peakAccel, 1.2);
    EXPECT_EQ(state().accelX2(2), 3.0);  // record 2 keeps its arrays

    // Next at the last record hands the six peaks to Form2.
    press(f.xnext);
    windows::Form2& f2 = program.form<windows::Form2>();
    EXPECT_TRUE(f2.visible());
    EXPECT_EQ(f2.Text2.text(), "0.4");
    EXPECT_EQ(f2.Text3.text(), "0.3");
    EXPECT_EQ(f2.Text4.text(), "3");
    EXPECT_EQ(f2.Text5.text(), "5");
    EXPECT_EQ(f2.Text6.text(), "0.6");
    EXPECT_EQ(f2.Text7.text(), "0.4");
    EXPECT_EQ(state().currentRecord, 3);

    // Back from 3 to 2 brings record 2's boxes back; the reading state is left alone.
    program.run([&] { f.Xfline.set_text("3"); f.xeline.set_text("9"); f.xstep.set_text("1"); });
    press(f.xBack);
    EXPECT_EQ(state().currentRecord, 2);
    EXPECT_EQ(f.caption(), "Input file parameters (2)");
    EXPECT_EQ(f.Text1.text(), "3");
    EXPECT_EQ(f.Text2.text(), "5");
    EXPECT_EQ(f.xvalue.text(), "5");
    EXPECT_DOUBLE_EQ(f.curMaxX, 3);
    EXPECT_DOUBLE_EQ(f.curMaxY, 5);
    EXPECT_EQ(f.Xfline.text(), "2");
    EXPECT_EQ(f.xeline.text(), "3");
    EXPECT_EQ(f.xstep.text(), "0.02");
    EXPECT_TRUE(f.Grid3.visible());
    EXPECT_FALSE(f.grid5.visible());
    EXPECT_TRUE(f.xBack.enabled());
    EXPECT_EQ(state().componentLetter, "Z");
    EXPECT_TRUE(f.chart.picNemodar.ops().empty());

    press(f.xBack);
    EXPECT_EQ(state().currentRecord, 1);
    EXPECT_EQ(f.xstep.text(), "0.01");
    EXPECT_EQ(f.xeline.text(), "4");
    EXPECT_FALSE(f.xBack.enabled());
    press(f.xBack);  // nothing below record 1
    EXPECT_EQ(state().currentRecord, 1);
}

// Show Diagram on a real record: Tabas, Ferdows, L1 as X and T1 as Y, data from line 5.
class RealRecordWindowTest : public RecordWindowTest {
protected:
    void SetUp() override {
        x = data_path("records/tabas1978_ferdows_L1.txt");
        y = data_path("records/tabas1978_ferdows_T1.txt");
        if (x.empty() || y.empty()) GTEST_SKIP() << "shared data not present";
        platform.input_answers = {"1", "5"};
        open_record(x, y);
        ASSERT_EQ(form1().Text1.text(), "0.09309877");  // line 1166
        ASSERT_EQ(form1().Text2.text(), "0.1048542");   // line 1709
        ASSERT_EQ(form1().xvalue.text(), "0.1048542");
        program.run([&] { form1().xstep.set_text("0.02"); });
    }
};

TEST_F(RealRecordWindowTest, ScaleTwoDoublesTheSamplesAndThePeakButNotTheBoxes) {
    windows::Form1& f = form1();
    program.run([&] { f.xscale.set_text("2"); });
    press(f.Command2);
    ASSERT_TRUE(platform.runtime_errors.empty());
    EXPECT_EQ(f.Grid1.text(1166, 0), "-.9309877E-01");
    EXPECT_EQ(f.Grid1.text(1166, 1), "-0.18619754");
    EXPECT_EQ(f.Grid1.text(5, 1), "-0.0009643134");
    EXPECT_EQ(f.Grid1.text(2004, 1), "9.780854E-05");
    EXPECT_EQ(f.Grid2.text(1709, 1), "0.2097084");
    EXPECT_EQ(f.Grid2.text(5, 1), "-0.000501096");
    EXPECT_EQ(f.Grid1.text(4, 1), f.Grid1.text(4, 0));  // the header rows keep their text, hidden
    EXPECT_TRUE(f.Grid1.row_hidden(4));
    EXPECT_FALSE(f.Grid1.row_hidden(5));
    const windows::ProjectState& s = state();
    ASSERT_EQ(s.accelX1.ubound(), 2004);
    EXPECT_EQ(s.accelX1(4), 0.0);
    EXPECT_EQ(s.accelX1(1166), -0.18619754);
    EXPECT_EQ(s.baseAccelX1(1166), -0.18619754);
    EXPECT_EQ(s.accelX1(2004), 9.780854E-05);
    EXPECT_EQ(s.accelY1(1709), 0.2097084);
    EXPECT_EQ(s.baseAccelY1(1709), 0.2097084);
    EXPECT_EQ(s.accelY1(5), -0.000501096);
    EXPECT_DOUBLE_EQ(s.peakAccel, 0.2097084);
    EXPECT_EQ(f.Text1.text(), "0.09309877");
    EXPECT_EQ(f.Text2.text(), "0.1048542");
    // The plot's range comes from the unscaled peak fields.
    EXPECT_DOUBLE_EQ(f.chart.range(), 1.2 * 0.1048542);
}

TEST_F(RealRecordWindowTest, AChangedPeakRescalesTheRealRecord) {
    windows::Form1& f = form1();
    program.run([&] { f.xvalue.set_text("0.3"); });
    press(f.Command2);
    ASSERT_TRUE(platform.runtime_errors.empty());
    // Y is the larger component and takes 0.3; X follows by 0.3 / 0.1048542.
    EXPECT_EQ(f.Grid2.text(1709, 1), "0.3");
    EXPECT_EQ(f.Grid2.text(1166, 1), "-0.0816126392648077");
    EXPECT_EQ(f.Grid2.text(5, 1), "-0.000716846821586546");
    EXPECT_EQ(f.Grid1.text(1166, 1), "-0.266366354423571");
    EXPECT_EQ(f.Grid1.text(2004, 1), "0.000139920775705694");
    const windows::ProjectState& s = state();
    EXPECT_EQ(s.accelY1(1709), 0.3);
    EXPECT_EQ(s.accelX1(1166), -0.266366354423571);
    EXPECT_EQ(s.baseAccelX1(1166), -0.266366354423571);
    EXPECT_EQ(s.baseAccelY1(1166), -0.0816126392648077);
    EXPECT_DOUBLE_EQ(s.peakAccel, 0.3);
    EXPECT_EQ(f.Text1.text(), "0.26636635");
    EXPECT_EQ(f.Text2.text(), "0.3");
    EXPECT_DOUBLE_EQ(f.chart.range(), 1.2 * 0.3);
}

TEST_F(RecordWindowTest, ATimeStepOfZeroStopsInTheTimeAxisAndKeepsWhatWasComputed) {
    open_simple();
    windows::Form1& f = form1();
    program.run([&] { f.xstep.set_text("0"); });
    press(f.Command2);
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0], (std::pair<int, std::string>{6, "Overflow"}));  // 0 / 0
    // The arrays, the tables and the curve were done before the axis failed.
    EXPECT_EQ(state().accelX1(3), -0.4);
    EXPECT_EQ(state().baseAccelY1(2), 0.3);
    EXPECT_EQ(f.Grid1.text(3, 1), "-0.4");
    int red = 0;
    for (const auto& op : f.chart.picNemodar.ops())
        if (op.kind == forms::DrawOp::Kind::Line && op.color == 255) ++red;
    EXPECT_EQ(red, 3);
    EXPECT_TRUE(f.xnext.enabled());
    EXPECT_EQ(f.Text1.text(), "0.4");
    EXPECT_FALSE(f.Command2.enabled());  // the routine stopped before its last step

    // A bad text reads as 0 in the same way; a good step through the draw options recovers.
    program.run([&] { f.xstep.set_text("abc"); });
    program.run([&] { f.Option4.user_click(); });
    ASSERT_EQ(platform.runtime_errors.size(), 2u);
    EXPECT_EQ(platform.runtime_errors[1].first, 6);
    program.run([&] { f.xstep.set_text("0.01"); });
    program.run([&] { f.Option3.user_click(); });
    EXPECT_EQ(platform.runtime_errors.size(), 2u);
    EXPECT_TRUE(f.Command2.enabled());
    EXPECT_FALSE(f.chart.PicxSxale.ops().empty());
}

TEST_F(RecordWindowTest, TextInTheTimeStepReadsItsLeadingNumberButTheReadOutRefusesIt) {
    open_simple();
    windows::Form1& f = form1();
    program.run([&] { f.xstep.set_text("0.01 s"); });
    press(f.Command2);
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_TRUE(f.Command2.enabled());
    // The read-out takes the step by the strict conversion: its failure is swallowed and the
    // label keeps its text, while the cross-hair moves.
    program.run([&] { f.chart.picNemodar.MouseMove(0, 0, 3.2, 0); });
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_EQ(f.chart.readout->caption(), "0 Sec");
    EXPECT_FLOAT_EQ(f.chart.Line2.x1(), 3.2f);
    EXPECT_FLOAT_EQ(f.chart.Line3.y1(), -0.4f);
}

TEST_F(RecordWindowTest, TextInTheScaleReadsAsZeroAndTheDrawingDividesByZero) {
    open_simple();
    windows::Form1& f = form1();
    program.run([&] { f.xscale.set_text("two"); });
    press(f.Command2);
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].first, 11);  // k = peak / 0 in the plot
    EXPECT_EQ(f.Grid1.text(3, 1), "0");
    EXPECT_EQ(state().accelX1(3), 0.0);
    EXPECT_EQ(f.Text1.text(), "0.4");
    EXPECT_DOUBLE_EQ(state().peakAccel, 0.4);  // as the reader left it
    // "2 x" reads as 2; the other draw option runs Show Diagram again.
    program.run([&] { f.xscale.set_text("2 x"); });
    program.run([&] { f.Option4.user_click(); });
    EXPECT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(state().accelX1(3), -0.8);
    EXPECT_DOUBLE_EQ(state().peakAccel, 0.8);
    EXPECT_TRUE(f.Command2.enabled());
}

TEST_F(RecordWindowTest, ShowDiagramDrawsTheChosenComponentAndTheMouseReadsByTheUnitsOption) {
    open_simple();
    windows::Form1& f = form1();
    press(f.Command2);
    const forms::PictureBox& plot = f.chart.picNemodar;
    // Index 2 to 4 of X: two red segments and the base line.
    int red = 0;
    for (const auto& op : plot.ops())
        if (op.kind == forms::DrawOp::Kind::Line && op.color == 255) ++red;
    EXPECT_EQ(red, 3);  // from index 1 (y 0) to 2, 2 to 3, 3 to 4
    EXPECT_DOUBLE_EQ(f.chart.range(), 1.2 * 0.4);

    program.run([&] { f.chart.picNemodar.MouseMove(0, 0, 3.2, 0); });
    EXPECT_EQ(f.chart.readout->caption(), "t: 0.02 , Accel: -0.40  ");
    program.run([&] { f.Option2.user_click(); });
    program.run([&] { f.chart.picNemodar.MouseMove(0, 0, 3.2, 0); });
    EXPECT_EQ(f.chart.readout->caption(), "t: 0.02 , Accel: 0.10  ");  // Y, though X is drawn
    // Beyond the array the value stays.
    program.run([&] { f.chart.picNemodar.MouseMove(0, 0, 40, 0); });
    EXPECT_EQ(f.chart.readout->caption(), "t: 0.20 , Accel: 0.10  ");
}

TEST_F(RecordWindowTest, TheSliderWidensThePlotAndDrawsAgain) {
    open_simple();
    windows::Form1& f = form1();
    press(f.Command2);
    program.run([&] { f.chart.Slider1.set_value(4); });
    EXPECT_EQ(f.chart.Label6.caption(), "X Axis Scale :4X");
    EXPECT_DOUBLE_EQ(f.chart.picNemodar.width(), 36660);
    EXPECT_EQ(f.chart.HScroll1.max(), 275);
    EXPECT_TRUE(f.chart.HScroll1.enabled());
    EXPECT_FALSE(f.chart.picNemodar.ops().empty());
}

TEST_F(RecordWindowTest, AnAllZeroComponentStopsThePlotWithARunTimeError) {
    // Line 1 gives X a peak, so the scaling works; the samples drawn are all zero.
    x = write("x.txt", "1 header\n0\n0\n");
    y = write("y.txt", "header\n0.2\n0.3\n");
    platform.input_answers = {"1", "2"};
    open_record(x, y);
    press(form1().Command2);
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].first, 11);
    EXPECT_EQ(state().accelY1(3), 0.3);  // the arrays were filled before the plot failed
}

TEST_F(RecordWindowTest, AnAllZeroRecordFailsInTheScaling) {
    x = write("x.txt", "0\n0\n");
    y = write("y.txt", "0\n0\n");
    platform.input_answers = {"1", "1"};
    open_record(x, y);
    press(form1().Command2);
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].second, "Overflow");  // 0 / 0
}

TEST_F(RecordWindowTest, ClosingTheWindowEndsTheProject) {
    open_simple();
    program.run([&] { program.unload<windows::Form1>(); });
    EXPECT_EQ(state().recordCount, 0);
    EXPECT_EQ(state().componentLetter, "X");
}

}  // namespace
}  // namespace tv::test
