// Form3: the tick boxes, RotD, Calculate, the chart selection, the export and the buttons' states.
#include "spectra_fixture.h"

#include <algorithm>

#include "compute/measures/rotd_spectra.h"

namespace tv::test {
namespace {

TEST_F(SpectraTest, TickBoxChainsLeaveOneMeasureOrNone) {
    to_response();
    windows::Form3& f = form3();
    program.run([&] { f.Check1.user_click(); });
    program.run([&] { f.Check2.user_click(); });
    EXPECT_EQ(f.Check1.value(), 0);
    EXPECT_EQ(f.Check2.value(), 1);
    // Ticking Velocity while Ps.Velocity is ticked unticks both, through the chain of clicks.
    program.run([&] { f.Check3.user_click(); });
    EXPECT_EQ(f.Check2.value(), 0);
    EXPECT_EQ(f.Check3.value(), 0);
    program.run([&] { f.Check3.user_click(); });
    EXPECT_EQ(f.Check3.value(), 1);
}

TEST_F(SpectraTest, OpeningLeavesTheWindowUncalculated) {
    to_response(2);
    windows::Form3& f = form3();
    EXPECT_EQ(f.calculated, 0);
    // Records 1 and 2 to choose, 1 chosen; Next and Export off.
    expect_shown(f, "response_opened");
    EXPECT_FALSE(state().specX1.allocated());
    program.run([&] { f.Combo1.set_list_index(1); });  // before Calculate: nothing
    EXPECT_FALSE(state().specX1.allocated());
}

TEST_F(SpectraTest, AnOptionClickBeforeCalculateStartsTheCalculation) {
    to_response();
    windows::Form3& f = form3();
    program.run([&] { f.Option2.user_click(); });
    EXPECT_EQ(f.calculated, 1);
    EXPECT_TRUE(state().specY1.allocated());
    EXPECT_EQ(f.Label4.caption(), "(Default : Pseudo.Acceleration)");  // not set on this road
    EXPECT_FALSE(f.chart.picNemodar.ops().empty());
    EXPECT_FALSE(f.Picbar.visible());  // the bar goes with the run
}

TEST_F(SpectraTest, ACancelledExportWritesNothingButSaysDoneAndClosesTheInputs) {
    to_response();
    windows::Form3& f = form3();
    press(f.Command1);
    press(f.Command5);
    EXPECT_EQ(platform.message_texts(), std::vector<std::string>{"Done"});
    EXPECT_FALSE(f.Frame1.enabled());
    EXPECT_EQ(state().specX1.ubound(), 400);
}

TEST_F(SpectraTest, BackUnloadsForm3AloneAndForm2StaysHidden) {
    to_response();
    press(form3().Command2);
    EXPECT_FALSE(program.is_loaded<windows::Form3>());
    ASSERT_TRUE(program.is_loaded<windows::Form2>());
    EXPECT_FALSE(form2().visible());
}

// The RotD boxes: pseudo accelerations of each record's pair from the rotated computation at the
// window's periods and damping, drawn over the component's spectrum and exported.
TEST_F(SpectraTest, RotDTicksGoWithThePseudoAccelerationOnly) {
    to_response();
    windows::Form3& f = form3();
    program.run([&] { f.Check1.user_click(); });
    program.run([&] { f.CheckRotD50.user_click(); });
    program.run([&] { f.CheckRotD100.user_click(); });
    EXPECT_EQ(f.Check1.value(), 0);
    EXPECT_EQ(f.CheckRotD50.value(), 1);
    program.run([&] { f.Check2.user_click(); });
    EXPECT_EQ(f.CheckRotD50.value(), 0);
    EXPECT_EQ(f.CheckRotD100.value(), 0);
}

TEST_F(SpectraTest, RotDIsTheRotatedComputationOfEachRecordDrawnAndExported) {
    to_response(2);
    windows::Form3& f = form3();
    program.run([&] { f.xbeta.set_text("0.02"); });
    program.run([&] { f.CheckRotD100.user_click(); });
    press(f.Command1);
    ASSERT_TRUE(f.rotd100Calculated);
    EXPECT_FALSE(f.rotd50Calculated);
    ASSERT_EQ(f.rotated.periods.size(), 400u);
    EXPECT_EQ(f.rotated.periods.front(), state().tStart);
    const compute::RotDOutcome r = compute::rotd_spectra(state().samples(2, 'X'), state().samples(2, 'Y'),
                                                         state().recordDt(2), 0.02, f.rotated.periods);
    ASSERT_TRUE(r.ok());
    for (long j = 1; j <= 400; ++j) ASSERT_EQ(f.rotd100[2](j), r.spectra.rotd100[static_cast<std::size_t>(j - 1)]);

    // Red for the component, blue for RotD100; the range holds the higher curve.
    const auto drawn = f.chart.drawn_data();
    ASSERT_EQ(drawn.size(), 3u);
    EXPECT_EQ(drawn[2].heading, "RotD100 Sa (g)");
    EXPECT_GE(f.chart.range(), *std::max_element(f.rotd100[1].raw().begin(), f.rotd100[1].raw().end()));

    platform.file_answers = {(dir / "rotd.txt").string()};
    press(f.Command5);
    const auto lines = lines_of(dir / "rotd.txt");
    ASSERT_GE(lines.size(), 2u);
    EXPECT_EQ(lines[0], std::string(windows::kResponseExportHeading) +
                            "    RotD100(1) (g)    RotD100(2) (g)    RotD100(3) (g)");
    EXPECT_EQ(lines[1].substr(lines[1].rfind("    ") + 4), "0.00000000");  // no record 3
}

}  // namespace
}  // namespace tv::test
