// Form6 taking the curves structural programs export: Browse and Start import what the
// window's own readers would misread, asking what the file leaves open.
#include "coefficient_fixture.h"
#include "text/number_text.h"

namespace tv::test {
namespace {

using CurveImportWindowTest = CoefficientTest;

TEST_F(CurveImportWindowTest, TheProgramsWorkbookIsShiftedToTheOriginAndSolved) {
    const std::string path = data_path("pushover/PDcurve.xlsx");
    if (path.empty()) GTEST_SKIP() << "PDcurve.xlsx not available";
    platform.file_answers.push_back(path);
    press(f6().Command1);  // the question of the first point is answered Yes
    windows::Form6& f = f6();
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].buttons, forms::MsgButtons::YesNo);
    EXPECT_NE(platform.messages[0].text.find("-0.0414 cm"), std::string::npos) << platform.messages[0].text;
    EXPECT_TRUE(platform.choices.empty());  // one case, known headings, units stated
    ASSERT_EQ(f.Fg.rows(), 13);
    EXPECT_EQ(f.Fg.text(1, 1), "0");
    EXPECT_EQ(f.Fg.text(12, 0), "11");
    EXPECT_EQ(f.Fg.text(12, 1), "10.201");  // 10.1596 + 0.0414
    EXPECT_EQ(f.Fg.text(12, 2), "437064.27");
    EXPECT_EQ(f.Text1.text(), path);
    EXPECT_EQ(f.lblConversion.caption(),
              "units: cm (as it stands), kgf (as it stands); first point: (-0.0414, 0), curve shifted to start at (0, 0)");
    press(f.Command3);
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_TRUE(f.Command5.enabled());
}

TEST_F(CurveImportWindowTest, OneCaseIsPickedFromATableOfSeveralAndConverted) {
    const std::string path = write("cases.txt",
                                   "TABLE:  Pushover Curve\n"
                                   "OutputCase\tStep\tDisplacement\tBaseForce\n"
                                   "Text\tUnitless\tm\tKN\n"
                                   "PUSH-X\t0\t0\t0\n"
                                   "PUSH-X\t1\t0,01\t100\n"
                                   "PUSH-Y\t0\t0\t0\n"
                                   "PUSH-Y\t1\t0,02\t150\n"
                                   "PUSH-Y\t2\t0,05\t200\n");
    program.run([&] { f6().cboUnits.set_list_index(2); });  // tonf·m
    platform.choice_answers.push_back(1);
    start_listing(path);
    windows::Form6& f = f6();
    ASSERT_EQ(platform.choices.size(), 1u);
    EXPECT_EQ(platform.choices[0], (std::vector<std::string>{"PUSH-X", "PUSH-Y"}));
    ASSERT_EQ(f.Fg.rows(), 4);
    EXPECT_EQ(f.Fg.text(3, 1), "0.05");
    EXPECT_NEAR(text::val(f.Fg.text(3, 2)), 200 / 9.80665, 1e-12);
    EXPECT_EQ(f.lblConversion.caption(), "case: PUSH-Y; units: m (as it stands), KN → tonf (× 0.101971621297793)");
}

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
