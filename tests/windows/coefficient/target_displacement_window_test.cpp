// Form8: the hand-over from Form6, the coefficient tables and their check-box chains, the
// target displacement and Rmax worked by hand, the note window and printing.
#include "coefficient_fixture.h"

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "windows/capacity/sa_window.h"

namespace tv::test {
namespace {

class TargetDisplacementTest : public CoefficientTest {
protected:
    /// The softening curve solved (Te = 1.022, dy = 1.99, Vy = 2855.72, limit 8), handed over,
    /// and the boxes a user fills: 3 stories, W = 10000, Sa = 0.5 g.
    void hand_over() {
        solve_softening();
        press(f6().Command5);
        type(f8().Text1, "3");
        type(f8().Text10, "10000");
        type(f8().Text2, "0.5");
    }
};

TEST_F(TargetDisplacementTest, Command5ShowsForm8AndCopiesTheResults) {
    solve_softening();
    press(f6().Command5);
    windows::Form8& f = f8();
    EXPECT_TRUE(f.visible());
    EXPECT_EQ(platform.shown.back(), "Form8");
    EXPECT_EQ(f.Text7.text(), "1.022");   // the label's three decimals
    EXPECT_EQ(f.Text16.text(), "1.99");   // 1.9900
    EXPECT_EQ(f.Text15.text(), "0.05");   // alfa1
    EXPECT_EQ(f.Text17.text(), "2855.72");  // 2855.7214 to two decimals
    EXPECT_EQ(f.Text18.text(), "8");      // the largest displacement
    EXPECT_TRUE(f.Check9.checked());
}

TEST_F(TargetDisplacementTest, OnlyNonZeroValuesAreCopied) {
    start_listing(write("curve.txt", kSofteningListing));
    program.run([&] { f6().select_row(2); });
    press(f6().Command3);  // cannot be solved: no yield point
    ASSERT_TRUE(f6().Command5.enabled());
    type(f8().Text16, "3.1");
    press(f6().Command5);
    EXPECT_EQ(f8().Text16.text(), "3.1");
    EXPECT_EQ(f8().Text17.text(), "");
    EXPECT_EQ(f8().Text7.text(), "0");
    EXPECT_EQ(f8().Text18.text(), "8");
}

// Ti = 0.5 gives Te = 0.511: C1 = 1 + 0.5758 / (60 x 0.511^2) = 1.0368, C2 = 1 +
// (0.5758 / 0.511)^2 / 800 = 1.0016, d = 4.0426; the limit 8 is larger, so Rmax = 8 / 1.99
// while the displacement shown stays d.
TEST_F(TargetDisplacementTest, AShortPeriodBringsC1AndC2AndTheLimitGoverns) {
    hand_over();
    type(f6().txtTI, "0.5");
    press(f6().Command5);
    windows::Form8& f = f8();
    EXPECT_EQ(f.Text7.text(), "0.511");
    press(f.Command1);
    EXPECT_EQ(f.Text4.text(), "1.04");
    EXPECT_EQ(f.Text5.text(), "1");
    EXPECT_EQ(f.Text9.text(), "4.04");
    EXPECT_EQ(f.Text14.text(), "4.02");
    // Soil I: a = 130, C1 = 1 + 0.5758 / (130 x 0.261121) = 1.017, d = 3.9655.
    click(f.Check7);
    EXPECT_FALSE(f.Check9.checked());
    press(f.Command1);
    EXPECT_EQ(f.Text4.text(), "1.02");
    EXPECT_EQ(f.Text9.text(), "3.97");
}

TEST_F(TargetDisplacementTest, ANegativeAlphaWarnsAndRaisesC3) {
    hand_over();
    windows::Form8& f = f8();
    type(f.Text17, "3500");
    type(f.Text10, "100000");
    press(f.Command1);
    // Alpha = (-200 / 6.01) / 1500 = -0.0222; R = 0.9 x 0.5 / 0.035 = 12.857;
    // C3 = 1 + 0.0222 x 11.857^1.5 / 1.022 = 1.886. C3 does not enter d.
    EXPECT_EQ(f.Label18.caption(), "-0.02");
    EXPECT_EQ(f.Label17.caption(), "Alpha < 0 . . . !!");
    EXPECT_EQ(f.Text13.text(), "12.86");
    EXPECT_EQ(f.Text6.text(), "1.89");
    EXPECT_EQ(f.Text9.text(), "15.57");
    // A typed C3 is kept.
    click(f.Check15);
    type(f.Text6, "1.3");
    press(f.Command1);
    EXPECT_EQ(f.Text6.text(), "1.3");
}

TEST_F(TargetDisplacementTest, Form6IsReadAgainAtEachCalculation) {
    hand_over();
    // A new yield point on Form6 changes Alpha, not the copied dy.
    type(f6().txtXC2, "1");
    press(f8().Command1);
    // ((3300 - 2855.72) / (8 - 1)) / 1500 = 0.0423.
    EXPECT_EQ(f8().Label18.caption(), "0.04");
    EXPECT_EQ(f8().Text16.text(), "1.99");
    EXPECT_EQ(f8().Text14.text(), "7.83");
}

TEST_F(TargetDisplacementTest, APeriodOfZeroIsARunTimeError) {
    hand_over();
    type(f6().txtTI, "0");
    press(f6().Command5);
    ASSERT_EQ(f8().Text7.text(), "0.000");
    press(f8().Command1);
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].first, text::kDivisionByZero);
}

TEST_F(TargetDisplacementTest, TheC0ColumnsFollowTheGroupLogic) {
    windows::Form8& f = f8();
    EXPECT_TRUE(f.Check1.checked());
    EXPECT_EQ(f.Text12.text(), "");
    type(f.Text1, "3");
    EXPECT_TRUE(f.Check1.checked());
    EXPECT_EQ(f.Text12.text(), "1.2");
    click(f.Check3);
    EXPECT_TRUE(f.Check3.checked());
    EXPECT_FALSE(f.Check1.checked());
    EXPECT_FALSE(f.Check2.checked());
    EXPECT_EQ(f.Text12.text(), "1.3");
    // A click on the only box that is on leaves it on.
    click(f.Check3);
    EXPECT_TRUE(f.Check3.checked());
    EXPECT_EQ(f.Text12.text(), "1.3");
    // A new story count clears the boxes; the one that was on turns itself back on.
    type(f.Text1, "7");
    EXPECT_TRUE(f.Check3.checked());
    EXPECT_EQ(f.Text12.text(), "1.44");
    click(f.Check2);
    type(f.Text1, "4");
    EXPECT_EQ(f.Text12.text(), "1.25");
}

TEST_F(TargetDisplacementTest, TheCmColumnsAndCheck14) {
    windows::Form8& f = f8();
    type(f.Text1, "3");
    EXPECT_EQ(f.Text11.text(), "0.9");
    click(f.Check13);
    EXPECT_TRUE(f.Check13.checked());
    EXPECT_FALSE(f.Check11.checked());
    EXPECT_EQ(f.Text11.text(), "0.8");
    click(f.Check14);
    EXPECT_EQ(f.Text11.text(), "1");
    // Check14 is not touched by a new story count, so Cm is not filled anew.
    type(f.Text11, "0.95");
    type(f.Text1, "2");
    EXPECT_TRUE(f.Check14.checked());
    EXPECT_EQ(f.Text11.text(), "0.95");
    click(f.Check12);
    EXPECT_EQ(f.Text11.text(), "1");  // one or two stories
}

TEST_F(TargetDisplacementTest, SoilAndTheUnreadChoiceAreGroupsToo) {
    windows::Form8& f = f8();
    click(f.Check8);
    EXPECT_TRUE(f.Check8.checked());
    EXPECT_FALSE(f.Check9.checked());
    click(f.Check8);
    EXPECT_TRUE(f.Check8.checked());
    // A new story count keeps the soil.
    type(f.Text1, "5");
    EXPECT_TRUE(f.Check8.checked());
    click(f.Check6);
    EXPECT_TRUE(f.Check6.checked());
    EXPECT_FALSE(f.Check4.checked());
}

TEST_F(TargetDisplacementTest, CalOpensForm11AtThePeriodOfTe) {
    hand_over();
    press(f8().Command3);
    EXPECT_TRUE(platform.runtime_errors.empty());
    ASSERT_TRUE(program.is_loaded<windows::Form11>());
    EXPECT_EQ(program.form<windows::Form11>().requestedPeriod, 1.022);
    EXPECT_EQ(platform.shown.back(), "Form11");
    // Until "Calculate Sa" runs nothing comes back.
    EXPECT_EQ(f8().Text2.text(), "0.5");
    // The period goes over as a number: an empty Te is a type mismatch.
    type(f8().Text7, "");
    press(f8().Command3);
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].first, text::kTypeMismatch);
}

TEST_F(TargetDisplacementTest, CalRoundTripThroughForm11FillsSaAndTs) {
    hand_over();
    press(f8().Command3);
    ASSERT_TRUE(program.is_loaded<windows::Form11>());
    windows::Form11& f11 = program.form<windows::Form11>();
    EXPECT_TRUE(f11.demand.Option1.value());  // soil I
    EXPECT_TRUE(f11.demand.Option5.value());  // low hazard
    press(f11.demand.Command6);               // Show Diagram
    EXPECT_TRUE(f11.demand.Command7.enabled());
    press(f11.demand.Command7);               // Calculate Sa
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_FALSE(program.is_loaded<windows::Form11>());
    EXPECT_EQ(platform.unloaded.back(), "Form11");
    // Both come back with four decimals. Soil I, low hazard, A = 1: Ts = 0.4, and at
    // T = 1.022 s Sa = 2.5 x 0.4 / 1.022 x (1 + 0.4 x 0.622 / 3.6) = 1.0461 g.
    EXPECT_EQ(f8().Text8.text(), "0.4000");
    const std::string sa = f8().Text2.text();
    ASSERT_EQ(sa.size(), 6u) << sa;
    EXPECT_EQ(sa.find('.'), 1u) << sa;
    EXPECT_NEAR(std::stod(sa), 1.0461, 0.0002) << sa;
    // Calculate then uses the Sa that came back: d = 1.2 x Sa x 981 x 1.022^2 / (4 x 3.1416^2).
    press(f8().Command1);
    const double d = 1.2 * std::stod(sa) * 981.0 * 1.022 * 1.022 / (4 * 3.1416 * 3.1416);
    EXPECT_NEAR(std::stod(f8().Text9.text()), d, 0.006);
}

TEST_F(TargetDisplacementTest, TheNoteOpensAndCloses) {
    press(f8().Command2);
    ASSERT_TRUE(program.is_loaded<windows::Form7>());
    windows::Form7& note = program.form<windows::Form7>();
    EXPECT_TRUE(note.visible());
    EXPECT_FALSE(note.Picture1.ops().empty());
    press(note.Command1);
    EXPECT_FALSE(program.is_loaded<windows::Form7>());
}

// The text drawn at the right of `caption` on its row, nearest to it; empty when none.
std::string beside(const forms::Page& page, const std::string& caption) {
    const forms::PageOp* label = nullptr;
    for (const forms::PageOp& op : page.ops)
        if (op.kind == forms::PageOp::Kind::Text && op.text == caption) label = &op;
    if (label == nullptr) return "no caption " + caption;
    const forms::PageOp* next = nullptr;
    for (const forms::PageOp& op : page.ops)
        if (op.kind == forms::PageOp::Kind::Text && std::abs(op.y1 - label->y1) < 0.5 && op.x1 > label->x1 &&
            (next == nullptr || op.x1 < next->x1))
            next = &op;
    return next ? next->text : std::string();
}

TEST_F(TargetDisplacementTest, ThePagePrintsEachBoxBesideItsOwnCaption) {
    hand_over();
    windows::Form8& f = f8();
    // Every box holds its own name, so a box printed in another's place shows.
    const std::vector<std::pair<const forms::Label*, forms::TextBox*>> rows = {
        {&f.lblStories, &f.Text1}, {&f.lblC0, &f.Text12},     {&f.lblCm, &f.Text11},  {&f.lblTe, &f.Text7},
        {&f.lblSa, &f.Text2},      {&f.lblTs, &f.Text8},      {&f.lblW, &f.Text10},   {&f.lblDy, &f.Text16},
        {&f.lblVy, &f.Text17},     {&f.lblLimit, &f.Text18},  {&f.lblAlphaE, &f.Text15}, {&f.lblC0Out, &f.Text3},
        {&f.lblC1, &f.Text4},      {&f.lblC2, &f.Text5},      {&f.lblC3, &f.Text6},   {&f.lblRu, &f.Text13},
        {&f.lblRmax, &f.Text14},   {&f.lblTarget, &f.Text9}};
    program.run([&] {
        for (const auto& [label, box] : rows) box->set_text(box->name());
    });
    const forms::Page page = f.report_page();
    for (const auto& [label, box] : rows) EXPECT_EQ(beside(page, label->caption()), box->name()) << label->name();
    // The window alone: its caption on the title bar, no lines of text below it.
    EXPECT_EQ(page_texts(page).front(), "Calculate Target Displacement");
    EXPECT_EQ(page_texts(page).back(), "Calculate");
}

TEST_F(TargetDisplacementTest, PrintAndSavePdfSendTheSamePage) {
    hand_over();
    program.run([&] { f6().xprinter.set_list_index(1); });
    press(f8().print);
    ASSERT_EQ(platform.printed.size(), 1u);
    EXPECT_EQ(platform.printed[0].printer, "PDF Printer");
    platform.printer_names.clear();  // a PDF needs no printer
    press(f8().print);
    EXPECT_EQ(platform.printed.size(), 1u);

    platform.file_answers.push_back((dir / "form8").string());
    press(f8().cmdSavePdf);
    ASSERT_EQ(platform.pdfs.size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(dir / "form8.pdf"));
    EXPECT_EQ(page_texts(platform.pdfs[0][0]), page_texts(platform.printed[0].page));
    press(f8().cmdSavePdf);  // cancelled
    EXPECT_EQ(platform.pdfs.size(), 1u);
}

}  // namespace
}  // namespace tv::test
