// Show Diagram, Next and Back of the record window.
#include "project_fixture.h"

#include "support/tables.h"
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
    std::string x, y;
};

TEST_F(RecordWindowTest, ShowDiagramScalesIntoTheArraysAndHidesTheOtherRows) {
    open_simple();
    windows::Form1& f = form1();
    program.run([&] { f.xscale.set_text("2"); });
    press(f.Command2);
    // The peaks shown stay unscaled; line 1 hidden, the scaled column doubled.
    expect_shown(f, "record_scaled");
    const auto& ax = state().accelX1;
    ASSERT_EQ(ax.ubound(), 4);
    EXPECT_EQ(ax(0), 0.0);
    EXPECT_EQ(ax(1), 0.0);  // below the first line
    EXPECT_EQ(ax(3), -0.8);
    EXPECT_EQ(state().baseAccelY1(4), -0.4);
    // The project peak is the doubled larger one.
    EXPECT_DOUBLE_EQ(state().peakAccel, 0.8);
}

TEST_F(RecordWindowTest, ThePeaksShownAreRoundedToEightDecimals) {
    open_texts("head\n0.1\n-0.987654321\n", "head\n0.123456789\n0.1\n");
    EXPECT_EQ(form1().Text1.text() + " " + form1().Text2.text(), "0.98765432 0.12345679");  // as read
    press(form1().Command2);
    EXPECT_EQ(form1().Text1.text() + " " + form1().Text2.text(), "0.98765432 0.12345679");
}

TEST_F(RecordWindowTest, AChangedPeakRescalesBothComponents) {
    open_simple();
    windows::Form1& f = form1();
    program.run([&] { f.xvalue.set_text("0.8"); });
    press(f.Command2);
    expect_shown(f, "record_peak_changed");
}

TEST_F(RecordWindowTest, ATypedPeakGoesToItsComponentUnlessItIsAComponentsOwn) {
    run_table("typed_peak.txt", {{"show", [&](const TableArgs& a) -> TableResult {
                  open_texts("head\n" + a.at(1), "head\n" + a.at(2));
                  windows::Form1& f = form1();
                  program.run([&] { f.Xfline.set_text(a.at(3)); });
                  if (a.at(4) != "-") program.run([&] { f.xvalue.set_text(a.at(4)); });
                  press(f.Command2);
                  EXPECT_TRUE(platform.runtime_errors.empty());
                  const std::string shown = f.Text1.text() + " " + f.Text2.text() + " " + f.Grid1.text(3, 1);
                  const bool scaled = state().accelX1.allocated();
                  program.run([&] { program.unload<windows::Form1>(); });
                  return shown + (scaled ? " scaled" : " unscaled");
              }}});
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
    open_x("0.1\n");
    press(form1().Command2);
    ASSERT_EQ(platform.message_texts(), std::vector<std::string>{"enter File y"});
    EXPECT_TRUE(form1().Command2.enabled());
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
    EXPECT_EQ(state().componentLetter, "X");
    // Record 2's tables, empty; Back on, Next off.
    expect_shown(f, "record_next");

    std::string x2 = write("x2.txt", "h\n1.5\n-0.5\n"), y2 = write("y2.txt", "h\n0.5\n2.5\n");
    open_record(x2, y2);
    EXPECT_EQ(f.Grid3.rows(), 4);
    EXPECT_EQ(f.Text2.text(), "2.5");
    press(f.Command2);
    EXPECT_EQ(state().accelY2(3), 2.5);

    press(f.xBack);
    EXPECT_EQ(state().currentRecord, 1);
    // Record 1's boxes and tables again, Back off.
    expect_shown(f, "record_back");
}

TEST_F(RecordWindowTest, AnAllZeroComponentStopsThePlotWithARunTimeError) {
    // Line 1 gives X a peak, so the scaling works; the samples drawn are all zero.
    open_texts("1 header\n0\n0\n", "header\n0.2\n0.3\n");
    press(form1().Command2);
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].first, 11);
    EXPECT_EQ(state().accelY1(3), 0.3);  // the arrays were filled before the plot failed
}

}  // namespace
}  // namespace tv::test
