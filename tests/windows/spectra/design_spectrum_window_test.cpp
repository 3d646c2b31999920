// Form2: the design spectrum, its options and file, and the hand-over to Form3.
#include "spectra_fixture.h"

namespace tv::test {
namespace {

TEST_F(SpectraTest, NextOfTheLastRecordOpensForm2WithTheSixPeaks) {
    to_design(2);
    EXPECT_TRUE(form2().visible());
    EXPECT_FALSE(form2().maximised);
    // Both records' peaks (0.4, 0.35), the third 0, A 0.2; Next and Command3 off.
    expect_shown(form2(), "design_opened");
}

TEST_F(SpectraTest, HazardOptionsOverwriteTheScaleAndSoilOptionsDoNot) {
    to_design();
    windows::Form2& f = form2();
    program.run([&] { f.Text1.set_text("0.9"); });
    program.run([&] { f.Option4.user_click(); });
    EXPECT_EQ(f.Text1.text(), "0.9");
    program.run([&] { f.Option6.user_click(); });
    EXPECT_EQ(f.Text1.text(), "0.3");
    program.run([&] { f.Option8.user_click(); });
    EXPECT_EQ(f.Text1.text(), "0.35");
    program.run([&] { f.Option7.user_click(); });
    EXPECT_EQ(f.Text1.text(), "0.25");
}

TEST_F(SpectraTest, AStartOfZeroWritesOnePastTheEndAndStopsWithShowDiagramDisabled) {
    to_design();
    windows::Form2& f = form2();
    program.run([&] { f.tstart.set_text("0"); });
    press(f.Command1);
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].first, 9);
    EXPECT_FALSE(f.Command1.enabled());
    EXPECT_EQ(state().designSa(1), 0.2);  // B(0) of soil I is A times S0 = 1
}

TEST_F(SpectraTest, AStepOfZeroIsADivisionByZero) {
    to_design();
    program.run([&] { form2().xstep.set_text("0"); });
    press(form2().Command1);
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(form2().Text8.text(), "0");  // the step's copy follows the box
}

TEST_F(SpectraTest, NextPublishesThePeriodGridAndOpensForm3) {
    to_design();
    windows::Form2& f = form2();
    program.run([&] { f.tend.set_text("3"); });
    press(f.Command1);
    program.run([&] { f.Text2.set_text("0.4"); });
    press(f.xnext);
    EXPECT_DOUBLE_EQ(state().tStart, 0.01);
    EXPECT_DOUBLE_EQ(state().tEnd, 3);
    EXPECT_DOUBLE_EQ(state().periodStep, 0.01);
    EXPECT_FALSE(f.visible());
    ASSERT_TRUE(program.is_loaded<windows::Form3>());
    EXPECT_EQ(form3().Text2.text(), "0.4");
    EXPECT_TRUE(form3().visible());
}

}  // namespace
}  // namespace tv::test
