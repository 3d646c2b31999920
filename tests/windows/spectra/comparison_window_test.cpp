// Form4: the scale factor, its rules, the band guard, the read-out, the closing question, the export.
#include "spectra_fixture.h"

#include "text/format.h"
#include "windows/spectra/comparison_window.h"

namespace tv::test {
namespace {

using ComparisonTest = SpectraTest;

TEST_F(ComparisonTest, OpeningTakesThePeaksAndTheGridEnd) {
    to_comparison();
    EXPECT_FALSE(form3().visible());
    // The peaks 0.4 and 0.35, the grid's end 4; no export before a calculation.
    expect_shown(form4(), "comparison_opened");
}

TEST_F(ComparisonTest, TheRuleBoxSetsTheSaScaleAndTheBandButNoCalculation) {
    to_comparison();
    windows::Form4& f = form4();
    program.run([&] { f.xbeta.set_text("1.5"); });
    program.run([&] { f.tstart.set_text("0.5"); });
    program.run([&] { f.Check2.user_click(); });
    // xbeta 1.3, the band 0.01 to 4, xzarib still 1.0.
    expect_shown(f, "comparison_rule_ticked");
    program.run([&] { f.Check2.user_click(); });
    EXPECT_EQ(f.xbeta.text(), "1.17");
}

TEST_F(ComparisonTest, TheBandEndCannotPassTheGridEnd) {
    to_comparison();
    windows::Form4& f = form4();
    program.run([&] { f.tend.set_text("4.5"); });
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, windows::kBandEndMessage);
    EXPECT_EQ(platform.messages[0].title, "");
    EXPECT_EQ(f.tend.text(), "4");
    program.run([&] { f.tend.set_text("2"); });
    EXPECT_EQ(platform.messages.size(), 1u);
}

TEST_F(ComparisonTest, TheReadOutShowsAverageTargetAndPeriod) {
    to_comparison();
    windows::Form4& f = form4();
    program.run([&] { f.chart.picNemodar.MouseMove(0, 0, 50, 0); });
    // Before Calculate the arrays are missing: the failing statements leave the labels as they were.
    EXPECT_EQ(f.LabelBlue.caption(), "Y: 0.00");
    EXPECT_EQ(f.LabelRed.caption(), "X: 0.00");
    press(f.Command1);
    program.run([&] { f.Check1.user_click(); });
    program.run([&] { f.chart.picNemodar.MouseMove(0, 0, 50.4, 0); });
    EXPECT_EQ(f.LabelBlue.caption(), "SRSS : " + text::format(f.averageSpectrum(50), "0.00"));
    EXPECT_EQ(f.LabelRed.caption(), "Spa(st): " + text::format(f.targetSpectrum(50), "0.00"));
    EXPECT_EQ(f.Label12.caption(), "T(Period) : 0.50");
    EXPECT_TRUE(f.LineRed.visible());
    EXPECT_FLOAT_EQ(f.LineBlue.y1(), static_cast<float>(f.averageSpectrum(50)));
}

TEST_F(ComparisonTest, YesClosesBothWindowsNoKeepsThisOneAndClosesForm3) {
    to_comparison();
    platform.message_answers = {forms::MsgResult::No};
    press(form4().Command2);
    EXPECT_EQ(platform.messages.back().text, "Do you want to close the form?");
    EXPECT_EQ(platform.messages.back().title, "Notice");
    EXPECT_TRUE(program.is_loaded<windows::Form4>());
    EXPECT_FALSE(program.is_loaded<windows::Form3>());
    // A later Calculate reloads Form3 for its damping, with the default text.
    press(form4().Command1);
    ASSERT_TRUE(program.is_loaded<windows::Form3>());
    EXPECT_EQ(form3().xbeta.text(), "0.05");

    platform.message_answers = {forms::MsgResult::Yes};
    press(form4().Command2);
    EXPECT_FALSE(program.is_loaded<windows::Form4>());
    EXPECT_FALSE(program.is_loaded<windows::Form3>());
    EXPECT_TRUE(program.is_loaded<windows::Form2>());
}

}  // namespace
}  // namespace tv::test
