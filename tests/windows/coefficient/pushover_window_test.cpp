// Form6: reading a pushover curve (also as other programs export it), its diagram, the choice of
// a step, the yield point by the scan or by hand, Te, the R factor and the printed page.
#include "coefficient_fixture.h"
#include "support/form_dump.h"
#include "support/page_dump.h"
#include "windows/chart/chart_data.h"

namespace tv::test {
namespace {

using forms::DrawOp;

class PushoverWindowTest : public CoefficientTest {
protected:
    /// Form6's table, boxes, buttons and lines, and what the platform was shown, against
    /// tests/golden/windows/pushover_<name>.txt.
    void expect_shown(const std::string& name) {
        static const std::set<std::string> kShown{
            "Fg", "Check1", "Text4", "txtKi", "txtZarib", "txtTolerance", "txtXC2", "txtYC2", "Text2", "Text3",
            "Text11", "Label10", "Label19", "ProgressBar1", "Command3", "Command4", "Command5", "Command8", "txtTI",
            "txtTEF", "txtKE", "lblArea", "lblArea2", "Text5", "Text6", "Text7", "Text8", "Text9", "Text10", "Text13",
            "Text14", "Line3", "Line5", "Line6", "xprinter", "Text1", "xBar", "yBar"};
        expect_state(dump(f6(), kShown) + dump(platform), "pushover_" + name, dir.string());
    }
};

TEST_F(PushoverWindowTest, TheMenuOpensTheWindowWithItsDefaults) {
    EXPECT_TRUE(f6().visible());
    // The activation lists the printers with the current one chosen.
    expect_shown("opened");
    // The sample of the table a workbook must hold: six rows, four column lines.
    expect_state(dump(f6().Picture2), "pushover_excel_sample");
}

TEST_F(PushoverWindowTest, SaveDataIsThePointsTheDiagramJoinsInTheChosenUnits) {
    start_listing(write("curve.txt", slurp(kSofteningCurve)));
    windows::Form6& f = f6();
    ASSERT_EQ(f.drawn_data().at(0).values.size(), f.picDiagram.ops().size() + 1);
    // Roof displacement (cm) and base force (kgf): the curve's six points to (8, 3300).
    expect_state(windows::chart_csv(f.drawn_data()), "pushover_saved_data");
}

TEST_F(PushoverWindowTest, TheTimerBlinksTheMarkerAndCheck1DrawsTheKiLine) {
    start_listing(write("curve.txt", slurp(kSofteningCurve)));
    windows::Form6& f = f6();
    program.run([&] { f.Timer1.tick(); });
    EXPECT_FALSE(f.Shape1.visible());
    program.run([&] { f.Timer1.tick(); });
    EXPECT_TRUE(f.Shape1.visible());

    click(f.Check1);
    // Line3: Y2 = 3300 x 1.5 = 4950 reached at 4950 / 1500 = 3.3.
    expect_shown("ki_line");
    ASSERT_EQ(f.picDiagram.ops().size(), 6u);
    // Drawn from the origin, the diagram's bottom left corner.
    EXPECT_EQ(f.picDiagram.ops().back().x1, 0.0);
    EXPECT_EQ(f.picDiagram.ops().back().y1, 4500.0);
    click(f.Check1);
    EXPECT_FALSE(f.Line3.visible());
}

TEST_F(PushoverWindowTest, SmallControlsOfTheWindow) {
    windows::Form6& f = f6();
    press(f.Command7);
    EXPECT_TRUE(f.Frame2.visible());
    EXPECT_FALSE(f.Text4.enabled());
    press(f.Command7);
    EXPECT_FALSE(f.Frame2.visible());
    EXPECT_TRUE(f.Text4.enabled());

    type(f.txtZarib, "0.7");
    type(f.txtTolerance, "0.05");
    program.run([&] { f.Label16.click(); });
    EXPECT_EQ(f.txtZarib.text(), "0.6");
    EXPECT_EQ(f.txtTolerance.text(), "0.05");
    program.run([&] { f.Label17.click(); });
    EXPECT_EQ(f.txtTolerance.text(), "0.01");

    click(f.Check2);
    EXPECT_FALSE(f.txtXC2.enabled());
    EXPECT_FALSE(f.txtYC2.enabled());
    click(f.Check2);
    EXPECT_TRUE(f.txtXC2.enabled());
}

TEST_F(PushoverWindowTest, ACancelledBrowseClearsTheYieldPointAndReadsNothing) {
    solve_softening();
    windows::Form6& f = f6();
    press(f.Command1);
    expect_shown("browse_cancelled");
}

TEST_F(PushoverWindowTest, StartAgainKeepsTheYieldPointButHidesTheLines) {
    solve_softening();
    windows::Form6& f = f6();
    press(f.Command2);
    // txtXC2 still 1.9900; Line5 and Line6 hidden.
    expect_shown("start_again");
    // A yield point stands, so the redraw keeps the flag and the slope of Line5.
    EXPECT_EQ(f.manualYieldFlag, 1.0);
    EXPECT_NEAR(f.yieldSlope, 2855.7214 / 1.99, 1e-3);
}

TEST_F(PushoverWindowTest, AnotherRowBecomesTheTarget) {
    start_listing(write("curve.txt", slurp(kSofteningCurve)));
    windows::Form6& f = f6();
    program.run([&] { f.select_row(4); });
    EXPECT_EQ(f.selectedStep, 3);
    EXPECT_EQ(f.kSelected, 1000.0);
    type(f.Text4, "2");
    EXPECT_EQ(f.kInitial, 1300.0);
    EXPECT_EQ(f.txtKi.text(), "1300");
    EXPECT_EQ(f.Label10.caption(), "Current Progress , K=1300.000");
    // The heading row fails the strict conversion and changes nothing.
    program.run([&] { f.select_row(0); });
    EXPECT_EQ(f.selectedStep, 3);
    EXPECT_TRUE(platform.runtime_errors.empty());
}

TEST_F(PushoverWindowTest, NoSelectedStepLeavesTheWindowHalfDisabled) {
    start_listing(write("curve.txt", slurp(kSofteningCurve)));
    windows::Form6& f = f6();
    f.Fg.set_selected_rows({});
    press(f.Command3);
    EXPECT_EQ(platform.messages[0].icon, forms::MsgIcon::Critical);
    expect_shown("no_step_selected");

    f.Fg.set_selected_rows({3, 6});
    press(f.Command3);
    ASSERT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(platform.messages[1].text, "More than one step Selected , Please select one Step !");
}

TEST_F(PushoverWindowTest, TheManualRouteTakesTheTypedPoint) {
    start_listing(write("curve.txt", slurp(kSofteningCurve)));
    windows::Form6& f = f6();
    type(f.txtXC2, "2");
    EXPECT_EQ(f.Text11.text(), "");  // one box empty: nothing yet
    type(f.txtYC2, "3000");
    // Before any search Text2 and Text3 are empty, so alfa1 sees the target at the origin:
    // (0 - 3000) / (0 - 2) over 3000 / 2 is 1.
    EXPECT_EQ(f.Text11.text(), "1");
    EXPECT_FALSE(f.Command8.enabled());
    EXPECT_FALSE(f.Command5.enabled());
    press(f.Command4);
    EXPECT_EQ(f.manualYieldFlag, 1.0);
    expect_shown("manual_yield");
}

TEST_F(PushoverWindowTest, TheManualRouteWithEmptyBoxesShowsTheFailure) {
    start_listing(write("curve.txt", slurp(kSofteningCurve)));
    press(f6().Command4);
    expect_shown("manual_yield_empty");
}

TEST_F(PushoverWindowTest, ANewTiGivesANewTeAndEmptiesThePeriodResults) {
    solve_softening();
    windows::Form6& f = f6();
    type(f.Text6, "2000");
    press(f.Command8);
    ASSERT_EQ(f.Text10.text(), "5");
    type(f.txtTI, "0.5");
    // 0.5 x (1500 / 1435.03587939698) ^ 0.5 = 0.5112 in txtTEF; the period's results empty,
    // Text7 (not period dependent) kept.
    expect_shown("new_ti");
    type(f.txtTI, "0");
    EXPECT_EQ(f.txtTEF.caption(), "0.000");
}

// The curves structural programs export: Browse and Start import what the window's own readers
// would misread, asking what the file leaves open.
TEST_F(PushoverWindowTest, UnknownHeadingsAndUnstatedUnitsAreAsked) {
    const std::string path = write("abc.txt", "a b c\n0 0 5\n10 100 6\n15 150 7\n");
    // Displacement in column 1, force in column 2; the file's numbers are mm and kgf.
    platform.choice_answers = {0, 1, 1, 0};
    start_listing(path);
    ASSERT_EQ(platform.choices.size(), 4u);
    EXPECT_EQ(platform.choices[0], (std::vector<std::string>{"1  \"a\"", "2  \"b\"", "3  \"c\""}));
    EXPECT_EQ(platform.choices[2], (std::vector<std::string>{"cm (as the numbers stand)", "mm", "m", "in", "ft"}));
    // Three rows, 15 mm read as 1.5 cm beside 150 kgf, and the conversion told.
    expect_state(dump(f6(), {"Fg", "lblConversion"}), "pushover_asked_mm");
}

TEST_F(PushoverWindowTest, ABadFileOrACancelledQuestionLeavesTheWindowAsItWas) {
    start_listing(write("curve.txt", slurp(kSofteningCurve)));
    ASSERT_EQ(f6().Fg.rows(), 7);
    const std::string bad = write("bad.csv", "Step,Displacement,Base Force\n0,0,0\n1,x,5\n");
    start_listing(bad);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, bad + ", row 3: expected a number in column 2 (\"Displacement\"), found \"x\"");
    start_listing(write("abc.txt", "a b c\n0 0 5\n1 10 6\n"));  // the column question is cancelled
    EXPECT_EQ(platform.choices.size(), 1u);
    EXPECT_EQ(f6().selectedStep, 5);
    // The first curve's rows, no conversion told.
    expect_state(dump(f6(), {"Fg", "lblConversion"}), "pushover_kept");
}

}  // namespace
}  // namespace tv::test
