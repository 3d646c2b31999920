// Form12 and Form13: the sum through the window's tables, the limits, picking, the history,
// the exports and the omega calculator.
#include <cmath>
#include <fstream>

#include "text/format.h"
#include "text/number_text.h"
#include "text/rounding.h"
#include "windows/fourier/fourier_window.h"
#include "windows/project/project_fixture.h"

namespace tv::test {
namespace {

class FourierTest : public ProjectTest {
protected:
    // A record whose X is a sine of 2 Hz (omega 12.566 rad/s), dt 0.01, shown in Form1.
    void open_sine(double hz = 2.0) {
        std::string x = "header\n", y = "header\n";
        for (int i = 1; i <= 400; ++i) {
            x += text::to_text(0.3 * std::sin(2 * M_PI * hz * i * 0.01)) + "\n";
            y += "0.1\n";
        }
        platform.input_answers = {"1", "2"};
        open_record(write("x.txt", x), write("y.txt", y));
        program.run([&] { form1().xstep.set_text("0.01"); });
        program.run([&] { form1().Command2.press(); });
        program.run([&] { form1().Command1.press(); });
        ASSERT_TRUE(program.is_loaded<windows::Form12>());
    }
    windows::Form12& f12() { return program.form<windows::Form12>(); }
    void go(const std::string& lim, const std::string& step = "0.05") {
        program.run([&] { f12().Text1.set_text(lim); });
        program.run([&] { f12().Text2.set_text(step); });
        program.run([&] { f12().Command1.press(); });
    }
};

TEST_F(FourierTest, OpeningTakesTheRecordLengthAndLeavesOnlyGo) {
    open_sine();
    EXPECT_EQ(f12().Text5.text(), "4.01");  // 401 lines times 0.01
    EXPECT_FALSE(f12().Command3.enabled());
    EXPECT_FALSE(f12().Command9.enabled());
    EXPECT_FALSE(f12().Check1.enabled());
    EXPECT_TRUE(f12().Command1.enabled());
}

TEST_F(FourierTest, TheSumPeaksAtTheRecordsOmegaAndFillsTheTable) {
    open_sine();
    go("40");
    windows::Form12& f = f12();
    ASSERT_TRUE(platform.runtime_errors.empty());
    EXPECT_EQ(f.Grid1.rows(), 801);
    EXPECT_EQ(f.Grid1.text(0, 3), "Omega");
    EXPECT_EQ(f.Text3.text(), "12.55");  // the grid omega nearest 4 pi
    EXPECT_EQ(f.Grid1.text(251, 3), "12.55");
    EXPECT_EQ(f.Text4.text(), f.Grid1.text(251, 2));
    EXPECT_EQ(f.Label11.caption(), text::to_text(text::round_to(6.2832 / 12.55, 2)));
    // The table keeps 5 decimals, the arrays the 15-digit sums.
    const std::string cell = f.Grid1.text(251, 0);
    EXPECT_LE(cell.size() - cell.find('.') - 1, 5u);
    EXPECT_EQ(text::round_to(state().accelX1(251), 5), text::val(cell));
    EXPECT_EQ(state().accelX2(251), text::val(f.Grid1.text(251, 2)));
    EXPECT_TRUE(f.Command3.enabled());
    EXPECT_TRUE(f.Command9.enabled());
    EXPECT_GE(platform.do_events_calls, 800);
}

TEST_F(FourierTest, TheStepLimitStopsBeforeTheSum) {
    open_sine();
    go("600.1");
    ASSERT_EQ(platform.message_texts(), std::vector<std::string>{"Steps are too many...! Change Omega Lim or Delta Omega"});
    EXPECT_EQ(platform.messages[0].icon, forms::MsgIcon::Information);
    EXPECT_EQ(state().accelX2.ubound(), 12002);  // made anew, left empty
    EXPECT_EQ(f12().Text3.text(), "");
}

TEST_F(FourierTest, BadTextInTheStrictBoxesAndAZeroStepAreRunTimeErrors) {
    open_sine();
    go("forty");
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].second, "Type mismatch");
    go("40", "0");
    ASSERT_EQ(platform.runtime_errors.size(), 2u);
    EXPECT_EQ(platform.runtime_errors[1].second, "Division by zero");
}

TEST_F(FourierTest, TheFirstPeakStandsAcrossRuns) {
    open_sine();
    go("40");
    go("10");  // no omega here reaches the earlier peak
    EXPECT_EQ(f12().Text3.text(), "12.55");
}

TEST_F(FourierTest, PicksAreSpacedAndTheHistoryComesFromThem) {
    open_sine();
    go("40");
    windows::Form12& f = f12();
    program.run([&] { f.Check1.user_click(); });
    EXPECT_TRUE(f.Command5.enabled());
    program.run([&] { f.Text8.set_text("3"); });
    program.run([&] { f.Command5.press(); });
    EXPECT_EQ(f.Grid3.text(0, 4), "T(sec)");
    EXPECT_EQ(f.Grid3.text(1, 3), "12.55");
    // With a spacing of 0 the neighbours of the peak come next.
    const double second = text::val(f.Grid3.text(2, 3)), third = text::val(f.Grid3.text(3, 3));
    EXPECT_NEAR(second, 12.55, 0.11);
    EXPECT_NEAR(third, 12.55, 0.11);
    EXPECT_EQ(f.Grid3.text(1, 4), text::to_text(text::round_to(6.2832 / 12.55, 2)));
    // A spacing of 1 keeps the next picks away from the peak.
    program.run([&] { f.Text9.set_text("1"); });
    program.run([&] { f.Command5.press(); });
    EXPECT_GT(std::fabs(text::val(f.Grid3.text(2, 3)) - 12.55), 1.0);

    program.run([&] { f.Text6.set_text("0.05"); });
    program.run([&] { f.Command3.press(); });
    EXPECT_EQ(f.Grid2.text(1, 0), "0.05");
    EXPECT_EQ(f.Grid2.rows(), 81);  // 4.01 / 0.05 rounds to 80
    EXPECT_TRUE(f.Command4.enabled());
}

TEST_F(FourierTest, ZeroPicksGiveAQuietHistory) {
    open_sine();
    go("40");
    windows::Form12& f = f12();
    program.run([&] { f.Check1.user_click(); });
    program.run([&] { f.Text8.set_text("0"); });
    program.run([&] { f.Command3.press(); });
    EXPECT_EQ(f.Grid2.text(5, 1), "0");
}

TEST_F(FourierTest, ASpacingWiderThanTheRangeLeavesNoPickAndFails) {
    open_sine();
    go("40");
    windows::Form12& f = f12();
    program.run([&] { f.Check1.user_click(); });
    program.run([&] { f.Text8.set_text("1"); });
    program.run([&] { f.Text9.set_text("100"); });
    program.run([&] { f.Command5.press(); });
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(f.Grid3.text(1, 3), "");
}

TEST_F(FourierTest, ExportsWriteTheirHeadingsAndTheNameRule) {
    open_sine();
    go("2");
    windows::Form12& f = f12();
    platform.file_answers = {(dir / "fft").string()};
    program.run([&] { f.Command9.press(); });
    std::ifstream fft(dir / "fft.txt");
    std::string line;
    std::getline(fft, line);
    EXPECT_EQ(line, "      omega               Amp ");
    std::getline(fft, line);
    EXPECT_EQ(line, "0.05000000    " + text::format(text::val(f.Grid1.text(1, 2)), "0.00000000"));
    program.run([&] { f.Command3.press(); });
    platform.file_answers = {(dir / "HIST.TXT").string()};
    program.run([&] { f.Command4.press(); });
    std::ifstream hist(dir / "HIST.TXT");
    std::getline(hist, line);
    EXPECT_EQ(line, "time               accel       ");
    std::getline(hist, line);
    EXPECT_EQ(line.substr(0, 14), "0.05000000    ");
    // Cancel writes nothing and says nothing.
    const auto said = platform.messages.size();
    program.run([&] { f.Command4.press(); });
    EXPECT_EQ(platform.messages.size(), said);
}

TEST_F(FourierTest, TheCalculatorTurnsAPeriodIntoAWholeOmega) {
    open_sine();
    program.run([&] { f12().Command7.press(); });
    windows::Form13& f13 = program.form<windows::Form13>();
    EXPECT_FALSE(f13.Command2.enabled());
    program.run([&] { f13.Text1.set_text("0"); });
    program.run([&] { f13.Command1.press(); });
    EXPECT_FALSE(f13.Command2.enabled());
    program.run([&] { f13.Text1.set_text("0.5"); });
    program.run([&] { f13.Command1.press(); });
    EXPECT_EQ(f13.Text2.text(), "12.5664");
    program.run([&] { f13.Command2.press(); });
    EXPECT_EQ(f12().Text1.text(), "13");
    EXPECT_FALSE(program.is_loaded<windows::Form13>());
}

TEST_F(FourierTest, CloseGivesNextBackToTheRecordWindow) {
    open_sine();
    program.run([&] { form1().xnext.set_enabled(false); });
    program.run([&] { f12().Command8.press(); });
    EXPECT_TRUE(form1().xnext.enabled());
    EXPECT_FALSE(program.is_loaded<windows::Form12>());
}

}  // namespace
}  // namespace tv::test
