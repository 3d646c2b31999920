// Form8: the hand-over from Form6, the coefficient tables and their check-box chains, the
// target displacement and Rmax worked by hand, the note window and printing.
#include "coefficient_fixture.h"

#include <string>

#include "support/form_dump.h"
#include "support/page_dump.h"
#include "support/tables.h"
#include "windows/capacity/sa_window.h"
#include "compute/nsp/nsp_comparison.h"
#include "windows/road_reports.h"

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
    EXPECT_TRUE(f8().visible());
    EXPECT_EQ(platform.shown.back(), "Form8");
    // Te 1.022 (the label's three decimals), dy 1.99, alfa1 0.05, Vy 2855.72 (2855.7214 to two
    // decimals), the largest displacement 8.
    expect_state(dump(f8(), {"Text7", "Text16", "Text15", "Text17", "Text18", "Check9"}), "target_handed_over");
}

TEST_F(TargetDisplacementTest, Form6IsReadAgainAtEachCalculation) {
    hand_over();
    // A new yield point on Form6 changes Alpha, not the copied dy.
    type(f6().txtXC2, "1");
    press(f8().Command1);
    // Label18 ((3300 - 2855.72) / (8 - 1)) / 1500 = 0.0423 as 0.04; dy 1.99; Rmax 7.83.
    expect_state(dump(f8(), {"Label18", "Text16", "Text14"}), "target_new_yield_point");
}

TEST_F(TargetDisplacementTest, AYieldPointAboveTheLastForceGivesANegativeAlphaAndC3) {
    hand_over();
    type(f8().Text17, "3400");
    type(f8().Text2, "2");
    press(f8().Command1);
    // Alpha (3300 - 3400) / (8 - 1.99) / 1500 = -0.011; C3 = 1 + 0.011 (R - 1)^1.5 / 1.022, two decimals.
    expect_state(dump(f8(), {"Label17", "Label18", "Text6"}), "target_negative_alpha");
}

// The report: Form8's section once its target is worked out; a procedure's demand as a line.
TEST_F(TargetDisplacementTest, TheReportHoldsForm8WhenCalculatedAndEachDemandAsALine) {
    hand_over();
    compute::nsp::NspComparison nsp{{}, {compute::nsp::MethodColumn{}}};
    nsp.columns[0].demand = {{0, 1}, {2, 0.5}, {4, 0.3}};
    auto count = [&](const compute::nsp::NspComparison* c, forms::PageOp::Kind kind, const std::string& text) {
        std::size_t n = 0;
        for (const forms::Page& page : windows::coefficient_report(program, {}, c))
            for (const forms::PageOp& op : page.ops) n += op.kind == kind && op.text == text;
        return n;
    };
    EXPECT_EQ(count(nullptr, forms::PageOp::Kind::Text, "Building and demand"), 0u);
    press(f8().Command1);
    EXPECT_EQ(count(nullptr, forms::PageOp::Kind::Text, "Building and demand"), 1u);
    EXPECT_EQ(count(&nsp, forms::PageOp::Kind::Polyline, ""), count(nullptr, forms::PageOp::Kind::Polyline, "") + 1);
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
    run_table("c0_group.txt", {{"c0", [&](const TableArgs& a) -> TableResult {
                  for (std::size_t i = 1; i + 1 < a.size(); i += 2) {
                      if (a[i] == "stories") type(f.Text1, a[i + 1]);
                      if (a[i] == "click") click(dynamic_cast<forms::CheckBox&>(*f.find(a[i + 1])));
                  }
                  return std::to_string(f.Check1.value()) + " " + std::to_string(f.Check2.value()) + " " +
                         std::to_string(f.Check3.value()) + " " + f.Text12.text();
              }}});
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

// Every box holds its own name, so a box printed in another's place shows; the window alone, its
// caption on the title bar, no lines of text below it.
TEST_F(TargetDisplacementTest, ThePagePrintsEachBoxBesideItsOwnCaption) {
    hand_over();
    windows::Form8& f = f8();
    program.run([&] {
        for (forms::TextBox* box : {&f.Text1, &f.Text12, &f.Text11, &f.Text7, &f.Text2, &f.Text8, &f.Text10, &f.Text16,
                                    &f.Text17, &f.Text18, &f.Text15, &f.Text3, &f.Text4, &f.Text5, &f.Text6, &f.Text13,
                                    &f.Text14, &f.Text9})
            box->set_text(box->name());
    });
    expect_state(dump(f.report_page()), "target_page");
}

}  // namespace
}  // namespace tv::test
