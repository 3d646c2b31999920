// Form6 taking the curves structural programs export: Browse and Start import what the
// window's own readers would misread, asking what the file leaves open.
#include "coefficient_fixture.h"
#include "text/number_text.h"

namespace tv::test {
namespace {

using CurveImportWindowTest = CoefficientTest;

TEST_F(CurveImportWindowTest, UnknownHeadingsAndUnstatedUnitsAreAsked) {
    const std::string path = write("abc.txt", "a b c\n0 0 5\n10 100 6\n15 150 7\n");
    // Displacement in column 1, force in column 2; the file's numbers are mm and kgf.
    platform.choice_answers = {0, 1, 1, 0};
    start_listing(path);
    ASSERT_EQ(platform.choices.size(), 4u);
    EXPECT_EQ(platform.choices[0], (std::vector<std::string>{"1  \"a\"", "2  \"b\"", "3  \"c\""}));
    EXPECT_EQ(platform.choices[2], (std::vector<std::string>{"cm (as the numbers stand)", "mm", "m", "in", "ft"}));
    ASSERT_EQ(f6().Fg.rows(), 4);
    EXPECT_EQ(f6().Fg.text(3, 1), "1.5");
    EXPECT_EQ(f6().Fg.text(3, 2), "150");
    EXPECT_EQ(f6().lblConversion.caption(), "units: mm → cm (× 0.1), kgf (as it stands)");
}

TEST_F(CurveImportWindowTest, ABadFileOrACancelledQuestionLeavesTheWindowAsItWas) {
    start_listing(write("curve.txt", kSofteningListing));
    ASSERT_EQ(f6().Fg.rows(), 7);
    const std::string bad = write("bad.csv", "Step,Displacement,Base Force\n0,0,0\n1,x,5\n");
    start_listing(bad);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, bad + ", row 3: expected a number in column 2 (\"Displacement\"), found \"x\"");
    start_listing(write("abc.txt", "a b c\n0 0 5\n1 10 6\n"));  // the column question is cancelled
    EXPECT_EQ(platform.choices.size(), 1u);
    EXPECT_EQ(f6().Fg.rows(), 7);
    EXPECT_EQ(f6().Fg.text(6, 1), " 8");
    EXPECT_EQ(f6().selectedStep, 5);
    EXPECT_EQ(f6().lblConversion.caption(), "");
}

}  // namespace
}  // namespace tv::test
