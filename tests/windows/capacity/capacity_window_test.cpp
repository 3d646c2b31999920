// Form9: the capacity file, the unit, the pages of the wizard, the demand spectrum and Sa.
#include "capacity_fixture.h"

#include <set>
#include <tuple>
#include <utility>

namespace tv::test {
namespace {

TEST_F(CapacityTest, TheMenuShowsTheWizardOnItsFirstPage) {
    EXPECT_TRUE(program.form<windows::frmMain>().menu_adrs.enabled());
    windows::Form9& f = form9();
    EXPECT_TRUE(f.visible());
    EXPECT_EQ(f.pageIndex, 0);
    EXPECT_TRUE(f.Frame1.visible());
    EXPECT_FALSE(f.Frame2.visible());
    EXPECT_FALSE(f.Frame3.visible());
    EXPECT_FALSE(f.frame2_internal.visible());
    EXPECT_FALSE(f.Command3.enabled());
    EXPECT_FALSE(f.Command5.enabled());
    EXPECT_FALSE(f.demand.Command7.enabled());
    EXPECT_FALSE(f.demand.Command4.enabled());
    EXPECT_TRUE(f.Op1.value());
}

TEST_F(CapacityTest, TheUnitWritesGravityAndItsName) {
    windows::Form9& f = form9();
    run([&] { f.Combo1.set_list_index(2); });
    EXPECT_EQ(f.T1.text(), "9.81");
    EXPECT_EQ(f.vahed.caption(), "m");
    run([&] { f.Combo1.set_list_index(1); });
    EXPECT_EQ(f.T1.text(), "981");
    EXPECT_EQ(f.vahed.caption(), "cm");
}

TEST_F(CapacityTest, BrowseReadsTheChosenFileAndCancelLeavesRedrawSuspended) {
    windows::Form9& f = form9();
    platform.file_answers.push_back(write("cap.txt", kHandCurve));
    press(f.Command1);
    EXPECT_EQ(platform.file_requests.back().filter, "Pushover File | *.txt");
    EXPECT_EQ(f.Fg.rows(), 7);
    EXPECT_TRUE(f.Fg.redraw());
    EXPECT_FALSE(platform.busy);
    press(f.Command1);  // cancelled
    EXPECT_FALSE(f.Fg.redraw());
    EXPECT_FALSE(platform.busy);
    EXPECT_EQ(f.Fg.rows(), 7);
}

TEST_F(CapacityTest, NextAndBackMoveBetweenThePages) {
    windows::Form9& f = form9();
    read_capacity(kHandCurve);
    run([&] { f.demand.xscale.set_text("3"); });
    press(f.Command3);
    EXPECT_EQ(f.pageIndex, 1);
    EXPECT_FALSE(f.Frame1.visible());
    EXPECT_TRUE(f.Frame2.visible());
    EXPECT_FALSE(f.frame2_internal.visible());
    EXPECT_FALSE(f.Command3.enabled());  // Sa must be calculated first
    EXPECT_TRUE(f.Command5.enabled());
    EXPECT_EQ(f.demand.xscale.text(), "1");

    press(f.Command5);
    EXPECT_EQ(f.pageIndex, 0);
    EXPECT_TRUE(f.Frame1.visible());
    EXPECT_FALSE(f.Frame2.visible());
    EXPECT_FALSE(f.Command5.enabled());
    EXPECT_TRUE(f.Command3.enabled());

    press(f.Command3);
    press(f.demand.Command6);
    EXPECT_FALSE(f.frame2_internal.visible());  // the Sa table waits for Calculate Sa
    press(f.demand.Command7);
    EXPECT_TRUE(f.frame2_internal.visible());
    EXPECT_TRUE(f.Command3.enabled());
    press(f.Command3);
    EXPECT_EQ(f.pageIndex, 2);
    EXPECT_FALSE(f.Frame2.visible());
    EXPECT_TRUE(f.Frame3.visible());
    EXPECT_FALSE(f.Command3.enabled());  // the sweep enables it

    press(f.Command5);
    EXPECT_EQ(f.pageIndex, 1);
    EXPECT_TRUE(f.Frame2.visible());
    EXPECT_FALSE(f.Frame3.visible());
    EXPECT_FALSE(f.Command3.enabled());  // Back leaves Next as it was
    EXPECT_TRUE(f.Command5.enabled());
}

TEST_F(CapacityTest, EnteringTheDemandPageAgainForgetsTheFileAndTheTick) {
    windows::Form9& f = form9();
    read_capacity(kHandCurve);
    press(f.Command3);
    run([&] { f.demand.Check1.user_click(); });
    EXPECT_TRUE(f.demand.Command4.enabled());
    EXPECT_FALSE(f.demand.Command6.enabled());
    EXPECT_FALSE(f.demand.fsoil.enabled());
    EXPECT_FALSE(f.demand.Frisk.enabled());
    press(f.Command5);
    press(f.Command3);
    EXPECT_EQ(f.demand.Check1.value(), 0);
    EXPECT_FALSE(f.demand.fromFile);
    EXPECT_TRUE(f.demand.Command6.enabled());
    EXPECT_FALSE(f.demand.Command4.enabled());
    EXPECT_TRUE(f.demand.fsoil.enabled());
    EXPECT_TRUE(f.demand.Frisk.enabled());
}

TEST_F(CapacityTest, AStepOfZeroShowsTheDivisionAndKeepsShowDiagramDisabled) {
    windows::Form9& f = form9();
    read_capacity(kHandCurve);
    press(f.Command3);
    run([&] { f.demand.xstep.set_text("0"); });
    press(f.demand.Command6);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Division by zero");
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_FALSE(f.demand.Command6.enabled());
    EXPECT_FALSE(f.demand.Command7.enabled());
}

TEST_F(CapacityTest, CancellingTheSpectrumFileShowsTheCancelAndReadsNothing) {
    windows::Form9& f = form9();
    read_capacity(kHandCurve);
    press(f.Command3);
    run([&] { f.demand.Check1.user_click(); });
    press(f.demand.Command4);  // the dialog cancelled
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Cancel was selected.");
    EXPECT_EQ(platform.messages[0].title, "");
    EXPECT_EQ(platform.file_requests.back().filter, "*.txt");
    EXPECT_FALSE(f.demand.fromFile);
    EXPECT_FALSE(f.demand.Command7.enabled());
    EXPECT_FALSE(platform.busy);
    EXPECT_TRUE(platform.runtime_errors.empty());
    // The preset name handed back ends the handler without a word.
    platform.file_answers.push_back("*.txt");
    press(f.demand.Command4);
    EXPECT_EQ(platform.messages.size(), 1u);
    EXPECT_FALSE(f.demand.fromFile);
    // A file that is not there gives its error's description the same way.
    platform.file_answers.push_back((dir / "none.txt").string());
    press(f.demand.Command4);
    ASSERT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(platform.messages[1].text.rfind("File not found", 0), 0u) << platform.messages[1].text;
    EXPECT_FALSE(f.demand.fromFile);
}

}  // namespace
}  // namespace tv::test
