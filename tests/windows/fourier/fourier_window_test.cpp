// Form12 and Form13: the sum through the window's tables, the limits, picking, the history,
// the exports and the omega calculator.
#include <cmath>
#include <fstream>

#include "compute/fourier/inverse_sum.h"
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

TEST_F(FourierTest, ACountFarBeyondTheLimitIsRefusedBeforeAnyArrayIsMade) {
    open_sine();
    go("600.1");
    go("1e308", "1e300");  // 10^8 omegas: three arrays of 800 MB
    ASSERT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(platform.messages[1].text, "Steps are too many...! Change Omega Lim or Delta Omega");
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_EQ(state().accelX2.ubound(), 12002);  // as the refused count before left it
}

TEST_F(FourierTest, AZeroStepIsARunTimeError) {
    open_sine();
    go("40", "0");
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].second, "Division by zero");
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
    // 4.04 / 0.05 is 80.8: the loop makes rows 1 to 80, and the table holds those alone.
    program.run([&] { f.Text5.set_text("4.04"); });
    program.run([&] { f.Command3.press(); });
    EXPECT_EQ(f.Grid2.rows(), 81);
    EXPECT_EQ(f.Grid2.text(5, 1), "0");
    EXPECT_EQ(f.Grid2.text(5, 0), "0");  // the time is written with a term, and there is none
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

TEST_F(FourierTest, TheLargestGridIsAcceptedAndOneStepMoreIsRefused) {
    open_sine();
    go("600.05");
    ASSERT_TRUE(platform.messages.empty());
    ASSERT_TRUE(platform.runtime_errors.empty());
    EXPECT_EQ(f12().Grid1.rows(), 12002);  // n 12001
    EXPECT_EQ(f12().Grid1.text(12001, 3), "600.05");
    go("600.1");
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Steps are too many...! Change Omega Lim or Delta Omega");
    EXPECT_EQ(platform.messages[0].title, "Error");
    EXPECT_EQ(platform.messages[0].icon, forms::MsgIcon::Information);
    EXPECT_TRUE(platform.runtime_errors.empty());
}

TEST_F(FourierTest, AZeroHistoryStepIsARunTimeErrorAndTheWindowGoesOn) {
    open_sine();
    go("10");
    windows::Form12& f = f12();
    program.run([&] { f.Text6.set_text("0"); });
    program.run([&] { f.Command3.press(); });
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].second, "Division by zero");
    EXPECT_FALSE(f.Command4.enabled());
    EXPECT_FALSE(f.looping());
    EXPECT_FALSE(platform.busy);
    program.run([&] { f.Text6.set_text("0.05"); });
    program.run([&] { f.Command3.press(); });
    EXPECT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_TRUE(f.Command4.enabled());
}

TEST_F(FourierTest, SeventeenAndAHalfSecondsByAHalfTenthAre350Rows) {
    open_sine();
    go("10");
    windows::Form12& f = f12();
    program.run([&] { f.Text5.set_text("17.5"); });
    program.run([&] { f.Text6.set_text("0.05"); });
    program.run([&] { f.Command3.press(); });
    ASSERT_TRUE(platform.runtime_errors.empty());
    EXPECT_EQ(f.Grid2.rows(), 351);
    EXPECT_EQ(f.Grid2.text(350, 0), "17.5");
    EXPECT_EQ(state().accelY1(350), 17.5);
    // Row 1 is the sum over all 200 omegas with the 5-decimal table values, times 1/pi.
    double a = 0;
    for (int i = 1; i <= 200; ++i)
        a = compute::inverse_term(a, text::val(f.Grid1.text(i, 0)), text::val(f.Grid1.text(i, 1)), i * 0.05, 0.05,
                                  0.05);
    EXPECT_EQ(state().accelX1(1), a);
    EXPECT_EQ(f.Grid2.text(1, 1), text::to_text(text::round_to(a * compute::kInversePi, 5)));
}

TEST_F(FourierTest, WithSpacingZeroTheNeighboursOfThePeakArePickedNext) {
    open_sine();
    go("40");
    windows::Form12& f = f12();
    program.run([&] { f.Check1.user_click(); });
    program.run([&] { f.Text8.set_text("3"); });
    program.run([&] { f.Command5.press(); });
    ASSERT_TRUE(platform.runtime_errors.empty());
    ASSERT_EQ(f.Grid3.rows(), 4);
    // The neighbours' order is that of their amplitudes.
    const bool upper_first = text::val(f.Grid1.text(252, 2)) > text::val(f.Grid1.text(250, 2));
    const int rows[] = {251, upper_first ? 252 : 250, upper_first ? 250 : 252};
    const char* omegas[] = {"12.55", upper_first ? "12.6" : "12.5", upper_first ? "12.5" : "12.6"};
    for (int r = 1; r <= 3; ++r) {
        const int i = rows[r - 1];
        EXPECT_EQ(f.Grid3.text(r, 0), f.Grid1.text(i, 0)) << r;
        EXPECT_EQ(f.Grid3.text(r, 1), f.Grid1.text(i, 1)) << r;
        EXPECT_EQ(f.Grid3.text(r, 2), f.Grid1.text(i, 2)) << r;
        EXPECT_EQ(f.Grid3.text(r, 3), omegas[r - 1]) << r;
        EXPECT_EQ(f.Grid3.text(r, 4), text::to_text(text::round_to(6.2832 / text::val(omegas[r - 1]), 2))) << r;
    }
}

TEST_F(FourierTest, AWideSpacingBecomesTheWindowsOmegaStep) {
    open_sine();
    go("40");
    windows::Form12& f = f12();
    program.run([&] { f.Check1.user_click(); });
    program.run([&] { f.Text8.set_text("2"); });
    program.run([&] { f.Text9.set_text("0.01"); });  // not above the step: the step stands
    program.run([&] { f.Command5.press(); });
    program.run([&] { f.Command3.press(); });
    EXPECT_EQ(f.deltaOmega, 0.05);
    program.run([&] { f.Text9.set_text("1"); });
    program.run([&] { f.Command5.press(); });
    program.run([&] { f.Command3.press(); });
    ASSERT_TRUE(platform.runtime_errors.empty());
    EXPECT_EQ(f.deltaOmega, 1.0);
    // Each pick weighs 1 rad/s.
    double a = 0;
    for (int r = 1; r <= 2; ++r)
        a = compute::inverse_term(a, text::val(f.Grid3.text(r, 0)), text::val(f.Grid3.text(r, 1)),
                                  text::val(f.Grid3.text(r, 3)), 0.05, 1.0);
    EXPECT_EQ(state().accelX1(1), a);
    // Export.fft still writes every omega of the sum.
    platform.file_answers = {(dir / "fft").string()};
    program.run([&] { f.Command9.press(); });
    ASSERT_TRUE(platform.runtime_errors.empty());
    std::ifstream fft(dir / "fft.txt");
    std::string line, last;
    int lines = 0;
    while (std::getline(fft, line)) ++lines, last = line;
    EXPECT_EQ(lines, 801);
    EXPECT_EQ(last, "40.00000000    " + text::format(text::val(f.Grid1.text(800, 2)), "0.00000000"));
    // GO reads the step from its box again.
    go("40");
    EXPECT_EQ(f.deltaOmega, 0.05);
}

TEST_F(FourierTest, PicksThatWereNeverFoundFailAtTheFirstRow) {
    open_sine();
    go("40");
    windows::Form12& f = f12();
    program.run([&] { f.Check1.user_click(); });
    program.run([&] { f.Command3.press(); });  // Grid3 has no rows yet
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].second, "Subscript out of range");
    EXPECT_EQ(f.Grid2.text(1, 1), "0");
    EXPECT_EQ(f.deltaOmega, 0.05);
    EXPECT_FALSE(f.looping());
}

TEST_F(FourierTest, NothingElseOfTheWindowRunsInsideItsLoops) {
    open_sine();
    windows::Form12& f = f12();
    program.run([&] { f.Text1.set_text("20"); });
    // Pending events run once per omega: a user's clicks arrive there.
    int inside = 0;
    bool busy_inside = false;
    const auto files_asked = platform.file_requests.size();
    f.pbar.changed = [&] {
        if (f.pbar.value() != 7) return;
        ++inside;
        busy_inside = platform.busy && f.looping();
        program.run([&] { f.Command1.press(); });
        program.run([&] { f.Command3.press(); });
        program.run([&] { f.Command5.press(); });
        program.run([&] { f.Command4.press(); });
        program.run([&] { f.Command9.press(); });
        program.run([&] { f.Command7.press(); });
        program.run([&] { f.Command8.press(); });
        program.run([&] { program.unload(f); });
    };
    program.run([&] { f.Command1.press(); });
    ASSERT_TRUE(program.is_loaded<windows::Form12>());
    EXPECT_EQ(inside, 1);  // one run, so one pass at 7
    EXPECT_TRUE(busy_inside);
    EXPECT_FALSE(platform.busy);
    EXPECT_FALSE(f.looping());
    EXPECT_FALSE(program.is_loaded<windows::Form13>());
    EXPECT_EQ(platform.file_requests.size(), files_asked);
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_EQ(f.Grid1.rows(), 401);
    EXPECT_FALSE(f.Picbar.visible());
    EXPECT_EQ(f.Grid2.rows(), 1);  // no Accel ran

    // The same inside Accel.
    inside = 0;
    program.run([&] { f.Command3.press(); });
    EXPECT_EQ(inside, 1);
    EXPECT_TRUE(busy_inside);
    EXPECT_TRUE(program.is_loaded<windows::Form12>());
    EXPECT_EQ(f.Grid2.rows(), 81);
    EXPECT_EQ(platform.file_requests.size(), files_asked);
    f.pbar.changed = nullptr;
}

TEST_F(FourierTest, ATinyPeriodOverflowsTheCalculator) {
    open_sine();
    program.run([&] { f12().Command7.press(); });
    windows::Form13& f13 = program.form<windows::Form13>();
    program.run([&] { f13.Text1.set_text("1E-310"); });
    program.run([&] { f13.Command1.press(); });
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].second, "Overflow");
    EXPECT_EQ(f13.Text2.text(), "");
    EXPECT_FALSE(f13.Command2.enabled());
}

}  // namespace
}  // namespace tv::test
