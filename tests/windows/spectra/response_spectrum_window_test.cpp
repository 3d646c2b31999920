// Form3: the tick boxes, Calculate, the chart selection, the export and the buttons' states.
#include "spectra_fixture.h"

#include <fstream>

#include "text/format.h"

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

}  // namespace
}  // namespace tv::test
