// Form12 and Form13: the sum through the window's tables, the limits, picking, the history,
// the exports and the omega calculator.
#include <cmath>

#include "text/number_text.h"
#include "windows/fourier/fourier_window.h"
#include "windows/measures/measures_window.h"
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
        open_texts(x, y);
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
    // Text5 4.01: 401 lines times 0.01; Command3, Command9 and Check1 off.
    expect_shown(f12(), "fourier_opened");
}

TEST_F(FourierTest, AZeroStepIsARunTimeErrorAndTheFirstPeakStandsAcrossRuns) {
    open_sine();
    go("40", "0");
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].second, "Division by zero");
    go("40");
    go("10");  // no omega here reaches the earlier peak
    EXPECT_EQ(f12().Text3.text(), "12.55");
}

TEST_F(FourierTest, TheCalculatorTurnsAPeriodIntoAWholeOmegaAndCloseGivesNextBack) {
    open_sine();
    program.run([&] { f12().Command7.press(); });
    windows::Form13& f13 = program.form<windows::Form13>();
    EXPECT_FALSE(f13.Command2.enabled());
    program.run([&] { f13.Text1.set_text("0"); });
    program.run([&] { f13.Command1.press(); });
    EXPECT_FALSE(f13.Command2.enabled());
    // A tiny period overflows.
    program.run([&] { f13.Text1.set_text("1E-310"); });
    program.run([&] { f13.Command1.press(); });
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].second, "Overflow");
    EXPECT_EQ(f13.Text2.text(), "");
    EXPECT_FALSE(f13.Command2.enabled());
    program.run([&] { f13.Text1.set_text("0.5"); });
    program.run([&] { f13.Command1.press(); });
    EXPECT_EQ(f13.Text2.text(), "12.5664");
    program.run([&] { f13.Command2.press(); });
    EXPECT_EQ(f12().Text1.text(), "13");
    EXPECT_FALSE(program.is_loaded<windows::Form13>());
    // Close gives Next back to the record window.
    program.run([&] { form1().xnext.set_enabled(false); });
    program.run([&] { f12().Command8.press(); });
    EXPECT_TRUE(form1().xnext.enabled());
    EXPECT_FALSE(program.is_loaded<windows::Form12>());
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
        for (forms::CommandButton* b : {&f.Command1, &f.Command3, &f.Command5, &f.Command4, &f.Command9, &f.Command7,
                                        &f.Command8})
            program.run([&] { b->press(); });
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
    EXPECT_FALSE(f.Picbar.visible());
    EXPECT_EQ(platform.file_requests.size(), files_asked);
    f.pbar.changed = nullptr;
}

// GO--! takes record 1's arrays as scratch space; the measures window still measures the record.
TEST_F(FourierTest, MeasuresAfterAFourierRunAreTheRecordsOwn) {
    open_sine();
    auto measured_pga = [this] {
        program.run([&] { form1().cmdMeasures.press(); });
        return program.form<windows::MeasuresWindow>().shown_measures('X')->pga;
    };
    const double pga = measured_pga();
    go("100");
    EXPECT_EQ(measured_pga(), pga);
    // The scratch holds the sums (the table's texts to four decimals), as a later response
    // spectrum of record 1 reads them.
    EXPECT_NEAR(state().accelX1(251), text::val(f12().Grid1.text(251, 0)), 5e-5);
    EXPECT_NEAR(state().accelY1(251), text::val(f12().Grid1.text(251, 1)), 5e-5);
}

}  // namespace
}  // namespace tv::test
