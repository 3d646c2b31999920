// Form9: the capacity file or a pushover curve, the unit, the pages of the wizard, the demand
// spectrum and Sa; the last page: the sweep through the window, the results and the clipboard.
#include "capacity_fixture.h"
#include "windows/capacity/curve_capacity_window.h"
#include "windows/capacity/text_table.h"
#include "windows/road_reports.h"

namespace tv::test {
namespace {

TEST_F(CapacityTest, TheMenuShowsTheWizardOnItsFirstPageAndTheUnitWritesGravity) {
    EXPECT_TRUE(program.form<windows::frmMain>().menu_adrs.enabled());
    windows::Form9& f = form9();
    EXPECT_TRUE(f.visible());
    EXPECT_EQ(f.pageIndex, 0);
    expect_shown("opened");
    // The unit writes gravity and its name.
    run([&] { f.Combo1.set_list_index(2); });
    EXPECT_EQ(f.T1.text() + " " + f.vahed.caption(), "9.81 m");
    run([&] { f.Combo1.set_list_index(1); });
    EXPECT_EQ(f.T1.text() + " " + f.vahed.caption(), "981 cm");
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
    // Page 1: Next waits for Sa, the scale is back to 1.
    press(f.Command3);
    EXPECT_EQ(f.pageIndex, 1);
    expect_shown("page1");
    press(f.Command5);
    EXPECT_EQ(f.pageIndex, 0);
    expect_shown("page0_again");

    // The Sa table waits for Calculate Sa.
    press(f.Command3);
    press(f.demand.Command6);
    EXPECT_FALSE(f.frame2_internal.visible());
    press(f.demand.Command7);
    EXPECT_TRUE(f.frame2_internal.visible());
    EXPECT_TRUE(f.Command3.enabled());
    // Page 2: the sweep enables Next; Back leaves Next as it was.
    press(f.Command3);
    EXPECT_EQ(f.pageIndex, 2);
    expect_shown("page2");
    press(f.Command5);
    EXPECT_EQ(f.pageIndex, 1);
    expect_shown("page1_again");
}

TEST_F(CapacityTest, EnteringTheDemandPageAgainForgetsTheFileAndTheTick) {
    windows::Form9& f = form9();
    read_capacity(kHandCurve);
    press(f.Command3);
    run([&] { f.demand.Check1.user_click(); });
    expect_shown("from_file_ticked");
    press(f.Command5);
    press(f.Command3);
    EXPECT_FALSE(f.demand.fromFile);
    expect_shown("page1");  // as first entered
}

TEST_F(CapacityTest, AStepOfZeroShowsTheDivisionAndKeepsShowDiagramDisabled) {
    windows::Form9& f = form9();
    read_capacity(kHandCurve);
    press(f.Command3);
    run([&] { f.demand.xstep.set_text("0"); });
    press(f.demand.Command6);
    expect_shown("zero_step");
}

TEST_F(CapacityTest, CancellingTheSpectrumFileShowsTheCancelAndReadsNothing) {
    windows::Form9& f = form9();
    read_capacity(kHandCurve);
    press(f.Command3);
    run([&] { f.demand.Check1.user_click(); });
    press(f.demand.Command4);  // the dialog cancelled
    expect_shown("spectrum_file_cancelled");
    EXPECT_EQ(platform.file_requests.back().filter, "*.txt");
    EXPECT_FALSE(f.demand.fromFile);
    EXPECT_FALSE(platform.busy);
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

// The capacity table built from a pushover curve and held by Form9 as if read from a file.
TEST_F(CapacityTest, TheModalNumbersComeFromPastedStoreys) {
    press(form9().cmdFromCurve);
    auto& d = program.form<windows::frmCurveCapacity>();
    run([&] { d.txtStoreys.set_text("1239.562\t0.00006\r\n961.554\t0.61821\r\n\r\n687.12\t1\r\n"); });
    press(d.cmdModal);
    EXPECT_TRUE(platform.messages.empty());
    // alpha1 and PF phi of these storeys are the curve_import table's first_mode rows.
    EXPECT_EQ(d.txtW.text(), "2888.236");
    run([&] { d.txtStoreys.set_text("100 1\n100 one\n"); });
    press(d.cmdModal);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Storey line 2: expected a weight and an amplitude, found \"100 one\"");
    EXPECT_EQ(d.txtW.text(), "2888.236");
}

TEST_F(CapacityTest, AFailingSweepKeepsTheRowsItWroteAndNextStaysOff) {
    windows::Form9& f = form9();
    // m = 0 takes the slope from row 1, where d is 0.
    run([&] { f.T4.set_text("0"); });
    sweep_hand_case();
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_FALSE(f.Command3.enabled());
    EXPECT_EQ(f.Re1.text(), "");
}

TEST_F(CapacityTest, TheReportsDiagramDrawsEverySeriesOfTheSweepAndTheClipboardTakesTheTable) {
    sweep_hand_case();
    int curves = 0, dots = 0;
    for (const forms::Page& page : windows::capacity_report(program, {}))
        for (const forms::PageOp& op : page.ops) {
            curves += op.kind == forms::PageOp::Kind::Polyline;
            dots += op.kind == forms::PageOp::Kind::Dot;
        }
    // Demand, reduced demand, capacity and the bilinear form as lines, the sweep's points as dots.
    EXPECT_EQ(curves, 4);
    EXPECT_GT(dots, 0);

    // The clipboard starts with the thirty visible headings.
    windows::Form9& f = form9();
    run([&] { f.copy.choose(); });
    const std::string first = platform.clipboard.substr(0, platform.clipboard.find("\r\n"));
    EXPECT_EQ(first.rfind("\tTarget\tstep\t", 0), 0u);
    // Every row of the table, each line ended by CR LF.
    std::size_t lines = 0;
    for (std::size_t p = 0; (p = platform.clipboard.find("\r\n", p)) != std::string::npos; p += 2) ++lines;
    EXPECT_EQ(lines, 7u);

    run([&] { f.Fg3.set_selected_rows({4}); });
    run([&] { f.copy.choose(); });
    const std::string& c = platform.clipboard;
    const std::size_t second = c.find("\r\n") + 2;
    EXPECT_EQ(c.substr(second, 12), "\t4.8000\t4\t4.");  // row 4 alone after the headings
    EXPECT_EQ(c.find("\r\n", second) + 2, c.size());
}

TEST_F(CapacityTest, TheRightButtonOnTheTableShowsTheFileMenu) {
    windows::Form9& f = form9();
    std::vector<std::string> popped;
    f.PopupMenu = [&](forms::Menu& m) { popped.push_back(m.name()); };
    run([&] { f.Fg3.MouseUp(1, 0, 10, 10); });
    EXPECT_TRUE(popped.empty());
    run([&] { f.Fg3.MouseUp(2, 0, 10, 10); });
    // Its captions, and the menu hidden on the window, are in the capacity_* window states.
    EXPECT_EQ(popped, std::vector<std::string>{"menu_file"});
}

}  // namespace
}  // namespace tv::test
