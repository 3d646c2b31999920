// Form6: reading a pushover curve, its diagram, the choice of a step, the yield point by the
// scan or by hand, Te, the R factor and the printed page.
#include <cmath>

#include "coefficient_fixture.h"

namespace tv::test {
namespace {

using forms::DrawOp;

std::vector<std::string> texts_of(const forms::PictureBox& p) {
    std::vector<std::string> out;
    for (const DrawOp& op : p.ops())
        if (op.kind == DrawOp::Kind::Text) out.push_back(op.text);
    return out;
}

class PushoverWindowTest : public CoefficientTest {};

TEST_F(PushoverWindowTest, TheMenuOpensTheWindowWithItsDefaults) {
    windows::Form6& f = f6();
    EXPECT_TRUE(f.visible());
    EXPECT_FALSE(f.Check1.enabled());
    EXPECT_FALSE(f.Command5.enabled());
    EXPECT_FALSE(f.Command8.enabled());
    EXPECT_EQ(f.Fg.rows(), 1);
    // The activation lists the printers with the current one chosen.
    EXPECT_EQ(f.xprinter.text(), "Office Laser");
}

TEST_F(PushoverWindowTest, StartReadsTheListingAndSelectsTheLastStep) {
    start_listing(write("curve.txt", kSofteningListing));
    windows::Form6& f = f6();
    EXPECT_TRUE(platform.messages.empty());
    ASSERT_EQ(f.Fg.rows(), 7);
    // The grid keeps the texts of the file, leading blanks included.
    EXPECT_EQ(f.Fg.text(2, 0), "1");
    EXPECT_EQ(f.Fg.text(2, 1), " 1");
    EXPECT_EQ(f.Fg.text(6, 2), " 3300");
    ASSERT_EQ(f.pushoverPoints.ubound(), 5);
    EXPECT_EQ(f.pushoverPoints(4).Displacement, 5.0);
    EXPECT_EQ(f.pushoverPoints(4).BaseForce, 3200.0);
    // The last row stands selected: the target of the fit.
    EXPECT_EQ(f.Fg.row(), 6);
    EXPECT_EQ(f.Fg.selected_rows(), std::set<int>{6});
    EXPECT_EQ(f.selectedStep, 5);
    EXPECT_EQ(f.kSelected, 412.5);
    EXPECT_EQ(f.kInitial, 1500.0);
    EXPECT_EQ(f.Text4.text(), "1");
    EXPECT_EQ(f.txtKi.text(), "1500");
    EXPECT_EQ(f.Label10.caption(), "Current Progress , K=1500.000");
    EXPECT_TRUE(f.Check1.enabled());
    EXPECT_TRUE(f.Shape1.visible());
    EXPECT_TRUE(f.Timer1.enabled());
    // The marker is centred on (8, 3300).
    EXPECT_NEAR(f.Shape1.left() + f.Shape1.width() / 2, 8.0, 1e-5);
    EXPECT_NEAR(f.Shape1.top() - f.Shape1.height() / 2, 3300.0, 1e-3);
    EXPECT_EQ(f.Text14.text(), "8");
}

TEST_F(PushoverWindowTest, TheDiagramUsesItsOwnScaleAndStrips) {
    start_listing(write("curve.txt", kSofteningListing));
    windows::Form6& f = f6();
    EXPECT_EQ(f.maxDisplacement, 8.0);
    EXPECT_EQ(f.maxForce, 3300.0);
    // 0 to 9.6 across, 5610 at the top to 0 at the bottom.
    EXPECT_EQ(f.picDiagram.scale_width(), 8 * 1.2);
    EXPECT_EQ(f.picDiagram.scale_top(), 3300 * 1.7);
    const auto& ops = f.picDiagram.ops();
    ASSERT_EQ(ops.size(), 5u);
    // (1, 1500): 1 / 9.6 of 6400 twips across, (5610 - 1500) / 5610 of 4500 down.
    EXPECT_NEAR(ops[0].x2, 6400.0 / 9.6, 1e-9);
    EXPECT_NEAR(ops[0].y2, 4500.0 * 4110 / 5610, 1e-9);
    EXPECT_NEAR(ops[4].x2, 6400.0 * 8 / 9.6, 1e-9);
    EXPECT_NEAR(ops[4].y2, 4500.0 * 2310 / 5610, 1e-9);
    // Ticks every 1.2 (12 rounded, over ten) up to 9.6, and every 561 up to 5610.
    EXPECT_EQ(texts_of(f.xBar), (std::vector<std::string>{"0.000", "1.200", "2.400", "3.600", "4.800", "6.000",
                                                          "7.200", "8.400", "9.600"}));
    std::vector<std::string> y = texts_of(f.yBar);
    ASSERT_EQ(y.size(), 11u);
    // The strips stand level with the diagram: the tick of 0 at its bottom.
    ASSERT_EQ(f.yBar.ops().front().kind, DrawOp::Kind::Line);
    EXPECT_DOUBLE_EQ(f.yBar.ops().front().y1, 4500.0);
    EXPECT_EQ(y[1], "561");
    EXPECT_EQ(y[10], "5610");
    // Save Data: the six points the five segments join, in the chosen units.
    const auto data = f.drawn_data();
    ASSERT_EQ(data.size(), 2u);
    EXPECT_EQ(data[0].heading, "Roof displacement (cm)");
    EXPECT_EQ(data[1].heading, "Base force (kgf)");
    ASSERT_EQ(data[0].values.size(), ops.size() + 1);
    EXPECT_EQ(data[0].values.back(), 8.0);
    EXPECT_EQ(data[1].values.back(), 3300.0);
}

TEST_F(PushoverWindowTest, TheTimerBlinksTheMarkerAndCheck1DrawsTheKiLine) {
    start_listing(write("curve.txt", kSofteningListing));
    windows::Form6& f = f6();
    program.run([&] { f.Timer1.tick(); });
    EXPECT_FALSE(f.Shape1.visible());
    program.run([&] { f.Timer1.tick(); });
    EXPECT_TRUE(f.Shape1.visible());

    click(f.Check1);
    // Y2 = 3300 x 1.5 = 4950 reached at 4950 / 1500 = 3.3.
    EXPECT_TRUE(f.Line3.visible());
    EXPECT_EQ(f.Line3.x1(), 0.0f);
    EXPECT_EQ(f.Line3.y1(), 0.0f);
    EXPECT_EQ(f.Line3.x2(), 3.3f);
    EXPECT_EQ(f.Line3.y2(), 4950.0f);
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

TEST_F(PushoverWindowTest, TheAutomaticSearchReachesTheHandWorkedYieldPoint) {
    start_listing(write("curve.txt", kSofteningListing));
    const int events_before = platform.do_events_calls;
    press(f6().Command3);
    windows::Form6& f = f6();
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_TRUE(platform.runtime_errors.empty());
    // The worked values stand in the golden run coefficient_auto_yield; here what the run
    // leaves of the window.
    EXPECT_EQ(f.txtXC2.text(), "1.9900");
    // 1500 to 1436 yielded once a slope, plus once before the scan.
    EXPECT_EQ(platform.do_events_calls - events_before, 66);
    EXPECT_EQ(f.ProgressBar1.max(), 1088.0f);  // 1087.5 rounds to even
    EXPECT_EQ(f.ProgressBar1.value(), 0.0f);
    EXPECT_FALSE(f.ProgressBar1.visible());
    // The bilinear lines go through the yield point to the target.
    EXPECT_TRUE(f.Line5.visible());
    EXPECT_EQ(f.Line5.x2(), 1.99f);
    EXPECT_EQ(f.Line6.x2(), 8.0f);
    EXPECT_EQ(f.Line6.y2(), 3300.0f);
    for (forms::Control* c : std::initializer_list<forms::Control*>{&f.Command3, &f.Command4, &f.Command5, &f.Command8,
                                                                    &f.txtTolerance, &f.txtZarib, &f.txtKi, &f.txtTI,
                                                                    &f.Text4, &f.Label16, &f.Label17, &f.Check1})
        EXPECT_TRUE(c->enabled()) << c->name();
}

TEST_F(PushoverWindowTest, AWorkbookChosenByBrowseGivesTheSameYieldPoint) {
    const std::string book = write_xlsx("curve.xlsx", {{"0", "0", "0"},
                                                       {"1", "1", "1500"},
                                                       {"2", "2", "2600"},
                                                       {"3", "3", "3000"},
                                                       {"4", "5", "3200"},
                                                       {"5", "8", "3300"}});
    type(f6().txtXC2, "9");
    platform.file_answers.push_back(book);
    press(f6().Command1);
    windows::Form6& f = f6();
    ASSERT_TRUE(platform.messages.empty()) << platform.messages[0].text;
    ASSERT_EQ(platform.file_requests.size(), 1u);
    EXPECT_EQ(platform.file_requests[0].filter, "*.xls");
    EXPECT_EQ(f.Text1.text(), book);
    EXPECT_EQ(f.txtXC2.text(), "");  // Browse clears the yield point
    EXPECT_EQ(f.Fg.rows(), 7);
    EXPECT_EQ(f.Fg.text(6, 1), "8");
    press(f.Command3);
    EXPECT_EQ(f.txtXC2.text(), "1.9900");
    EXPECT_EQ(f.txtYC2.text(), "2855.7214");
}

TEST_F(PushoverWindowTest, ACancelledBrowseClearsTheYieldPointAndReadsNothing) {
    solve_softening();
    windows::Form6& f = f6();
    press(f.Command1);
    EXPECT_EQ(f.txtXC2.text(), "");
    EXPECT_EQ(f.txtYC2.text(), "");
    EXPECT_FALSE(f.Check1.enabled());
    EXPECT_EQ(f.Fg.rows(), 7);
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(PushoverWindowTest, StartAgainKeepsTheYieldPointButHidesTheLines) {
    solve_softening();
    windows::Form6& f = f6();
    press(f.Command2);
    EXPECT_EQ(f.txtXC2.text(), "1.9900");
    EXPECT_FALSE(f.Line5.visible());
    EXPECT_FALSE(f.Line6.visible());
    // A yield point stands, so the redraw keeps the flag and the slope of Line5.
    EXPECT_EQ(f.manualYieldFlag, 1.0);
    EXPECT_NEAR(f.yieldSlope, 2855.7214 / 1.99, 1e-3);
}

TEST_F(PushoverWindowTest, AnotherRowBecomesTheTarget) {
    start_listing(write("curve.txt", kSofteningListing));
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

TEST_F(PushoverWindowTest, TheOriginRowKeepsTheTargetBeforeIt) {
    start_listing(write("curve.txt", kSofteningListing));
    windows::Form6& f = f6();
    program.run([&] { f.select_row(4); });  // step 3 at (3, 3000)
    // Row 1 is the origin: 0 / 0 ends the selection silently, after the marker moved.
    program.run([&] { f.select_row(1); });
    EXPECT_EQ(f.Fg.row(), 1);
    EXPECT_EQ(f.Fg.selected_row_count(), 1);
    EXPECT_EQ(f.Shape1.left(), -f.Shape1.width() / 2);
    EXPECT_EQ(f.selectedStep, 3);
    EXPECT_EQ(f.kSelected, 1000.0);
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_TRUE(platform.messages.empty());
    // One row stands selected, so the search runs, on the step selected before: A = 750 + 2050
    // + 2800 = 5600; K = 1207 meets the third segment (slope 400) at x = 1800 / 807 = 2.2305,
    // and over 0.6 the yield point is (3.7175, 4486.9888), area 5654.3, within 1 % of A.
    press(f.Command3);
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_EQ(f.lblArea.caption(), "5600.000");
    EXPECT_EQ(f.Label19.caption(), "2.230 , 2692.193");
    EXPECT_EQ(f.txtXC2.text(), "3.7175");
    EXPECT_EQ(f.txtYC2.text(), "4486.9888");
    EXPECT_EQ(f.Text2.text(), "3");
    EXPECT_EQ(f.Text3.text(), "3000");
    EXPECT_TRUE(f.Command3.enabled());
}

TEST_F(PushoverWindowTest, AFileThatCannotBeReadGivesTheReadMessage) {
    windows::Form6& f = f6();
    // A folder under a file's name cannot be opened as one, by either reader.
    std::filesystem::create_directories(dir / "locked.txt");
    start_listing((dir / "locked.txt").string());
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Error Reading Pushover file!");
    EXPECT_EQ(platform.messages[0].title, "Error");
    EXPECT_EQ(platform.messages[0].icon, forms::MsgIcon::Critical);
    EXPECT_EQ(f.Fg.rows(), 1);
    EXPECT_TRUE(f.Fg.redraw());
    EXPECT_TRUE(platform.runtime_errors.empty());

    std::filesystem::create_directories(dir / "locked.xlsx");
    platform.file_answers.push_back((dir / "locked.xlsx").string());
    press(f.Command1);
    ASSERT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(platform.messages[1].text, "Error Reading Pushover file!");
    EXPECT_EQ(platform.messages[1].icon, forms::MsgIcon::Critical);
    EXPECT_TRUE(f.picDiagram.ops().empty());
    EXPECT_TRUE(platform.runtime_errors.empty());
}

TEST_F(PushoverWindowTest, NoSelectedStepLeavesTheWindowHalfDisabled) {
    start_listing(write("curve.txt", kSofteningListing));
    windows::Form6& f = f6();
    f.Fg.set_selected_rows({});
    press(f.Command3);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "No Step Selected , Please select one Step !");
    EXPECT_EQ(platform.messages[0].title, "Error");
    EXPECT_EQ(platform.messages[0].icon, forms::MsgIcon::Critical);
    EXPECT_FALSE(f.txtTolerance.enabled());
    EXPECT_FALSE(f.Command4.enabled());
    EXPECT_FALSE(f.Check1.enabled());
    EXPECT_TRUE(f.ProgressBar1.visible());
    EXPECT_TRUE(f.Command3.enabled());
    EXPECT_FALSE(f.Command5.enabled());
    EXPECT_EQ(f.txtXC2.text(), "");
    EXPECT_EQ(f.Text2.text(), "8");

    f.Fg.set_selected_rows({3, 6});
    press(f.Command3);
    ASSERT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(platform.messages[1].text, "More than one step Selected , Please select one Step !");
}

TEST_F(PushoverWindowTest, TheManualRouteTakesTheTypedPoint) {
    start_listing(write("curve.txt", kSofteningListing));
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
    EXPECT_TRUE(f.Command5.enabled());
    EXPECT_TRUE(f.Command8.enabled());
    EXPECT_TRUE(f.Line6.visible());
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(PushoverWindowTest, TheManualRouteWithEmptyBoxesShowsTheFailure) {
    start_listing(write("curve.txt", kSofteningListing));
    press(f6().Command4);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Type mismatch");
    EXPECT_EQ(platform.messages[0].title, "Error");
    EXPECT_TRUE(f6().Command5.enabled());
}

TEST_F(PushoverWindowTest, ANewTiGivesANewTeAndEmptiesThePeriodResults) {
    solve_softening();
    windows::Form6& f = f6();
    type(f.Text6, "2000");
    press(f.Command8);
    ASSERT_EQ(f.Text10.text(), "5");
    type(f.txtTI, "0.5");
    // 0.5 x (1500 / 1435.03587939698) ^ 0.5 = 0.5112.
    EXPECT_EQ(f.txtTEF.caption(), "0.511");
    EXPECT_EQ(f.Text10.text(), "");
    EXPECT_EQ(f.Text9.text(), "");
    EXPECT_EQ(f.Text7.text(), "1.4");  // not period dependent
    type(f.txtTI, "0");
    EXPECT_EQ(f.txtTEF.caption(), "0.000");
}

// The factors themselves stand in the golden run coefficient_r_and_target.
TEST_F(PushoverWindowTest, CalculateRByHand) {
    solve_softening();
    windows::Form6& f = f6();
    type(f.Text6, "2000");
    press(f.Command8);
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_EQ(f.Text9.text(), "3.9");
    // Stale results go by their inputs.
    type(f.Text6, "2500");
    EXPECT_EQ(f.Text9.text(), "");
    EXPECT_EQ(f.Text7.text(), "");
    EXPECT_EQ(f.Text8.text(), "2.7");
    type(f.Text11, "0.1");
    EXPECT_EQ(f.Text8.text(), "");
    EXPECT_EQ(f.Text10.text(), "5");
}

TEST_F(PushoverWindowTest, EveryReadFailureHasOneMessage) {
    windows::Form6& f = f6();
    start_listing((dir / "missing.txt").string());
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Error Reading Pushover file!");
    EXPECT_EQ(platform.messages[0].title, "Error");
    EXPECT_EQ(platform.messages[0].icon, forms::MsgIcon::Critical);
    EXPECT_TRUE(f.Fg.redraw());

    // A step beyond 16 bits: the rows before it stay, the diagram is not drawn.
    start_listing(write("big.txt", "Displacement\n 0 0 0 x\n 1 1 1500 x\n 40000 2 2600 x\n 3 3 3000 x\n"));
    ASSERT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(platform.messages[1].text, "Error Reading Pushover file!");
    EXPECT_EQ(f.Fg.rows(), 3);
    EXPECT_EQ(f.pushoverPoints.ubound(), 2);
    EXPECT_EQ(f.pushoverPoints(2).BaseForce, 2600.0);
    EXPECT_TRUE(f.picDiagram.ops().empty());

    // Not a workbook.
    platform.file_answers.push_back(write("fake.xls", "not a workbook"));
    press(f.Command1);
    ASSERT_EQ(platform.messages.size(), 3u);
    EXPECT_EQ(platform.messages[2].text, "Error Reading Pushover file!");
    EXPECT_EQ(f.Fg.rows(), 1);
}

TEST_F(PushoverWindowTest, AListingWithoutItsHeadingIsImported) {
    // No line holds "Displacement", so the listing reader would find nothing: the import reads
    // the columns by their headings, asks the units (kgf and cm as they stand) and fills the table.
    platform.choice_answers = {0, 0};
    start_listing(write("lower.txt", "Step displacement force x\n 0 0 0 x\n 1 1 1000 x\n"));
    windows::Form6& f = f6();
    EXPECT_TRUE(platform.messages.empty());
    ASSERT_EQ(f.Fg.rows(), 3);
    EXPECT_EQ(f.Fg.text(2, 2), "1000");
    EXPECT_EQ(f.selectedStep, 1);
}

const std::vector<std::string> kFinalResults = {
    "Final Results",          "Pushover Area :  21550.000", "Collision Area : 21339.386",
    "K-Effective : 1435.036", "Ti (Sec) :  1",              "T-Effective : 1.022"};

TEST_F(PushoverWindowTest, PrintPutsTheDiagramAndTheFinalResultsOnThePage) {
    solve_softening();
    windows::Form6& f = f6();
    program.run([&] { f.xprinter.set_list_index(1); });
    press(f.Command6);
    ASSERT_EQ(platform.printed.size(), 1u);
    EXPECT_EQ(platform.printed[0].printer, "PDF Printer");
    const std::vector<std::string> texts = page_texts(platform.printed[0].page);
    ASSERT_GE(texts.size(), 6u);
    EXPECT_EQ(std::vector<std::string>(texts.end() - 6, texts.end()), kFinalResults);
    // The staged copy holds the curve, both strips and the two bilinear lines.
    const std::size_t expected = f.picDiagram.ops().size() + f.xBar.ops().size() + f.yBar.ops().size() + 2;
    EXPECT_EQ(f.pic1.ops().size(), expected);
}

TEST_F(PushoverWindowTest, SavePdfSendsThePrintedPageToTheChosenFile) {
    solve_softening();
    windows::Form6& f = f6();
    EXPECT_EQ(f.cmdSavePdf.caption(), "Save PDF...");
    // No printer is needed for a PDF; the name gets its ".pdf".
    platform.printer_names.clear();
    platform.file_answers.push_back((dir / "report").string());
    press(f.cmdSavePdf);
    ASSERT_EQ(platform.file_requests.size(), 1u);
    EXPECT_TRUE(platform.file_requests[0].save);
    EXPECT_EQ(platform.file_requests[0].filter, "PDF File | *.pdf");
    ASSERT_EQ(platform.pdfs.size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(dir / "report.pdf"));
    // The same page as Print: the staged diagram and the final results.
    ASSERT_EQ(platform.pdfs[0].size(), 1u);
    const forms::Page& page = platform.pdfs[0][0];
    EXPECT_EQ(page.title, f.caption());
    const std::vector<std::string> texts = page_texts(page);
    ASSERT_GE(texts.size(), 6u);
    EXPECT_EQ(std::vector<std::string>(texts.end() - 6, texts.end()), kFinalResults);
    EXPECT_TRUE(platform.messages.empty());

}

}  // namespace
}  // namespace tv::test
