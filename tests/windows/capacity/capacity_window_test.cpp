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

TEST_F(CapacityTest, StartReadsTheNineColumnsAfterTheTeffLine) {
    read_capacity("Title line with numbers 1 2 3 4 5 6 7 8 9\n"
                  "  Step  Teff  Betaeff  Sd_C  Sa_C  Sd_d  Sa_d  ALPHA  Pf_fi\n"
                  " 0 0.5 5 0 0 0 0 0.8 1.3\n"
                  "\n"
                  " 1\t0.52 5.5 10 0.2 10 0.2 0.8 1.3\n"
                  " 2 0.55 6 20 0.35 20 0.35 0.8\n"  // eight columns: dropped
                  " 3 0.6 7 30 0.45 30 0.45 0.8 1.3 \n");  // a blank at the end: dropped
    windows::Form9& f = form9();
    ASSERT_EQ(f.Fg.rows(), 3);
    EXPECT_EQ(f.Fg.text(1, 0), "0");
    EXPECT_EQ(f.Fg.text(1, 1), " 0.5");
    EXPECT_EQ(f.Fg.text(1, 8), " 1.3");
    EXPECT_EQ(f.Fg.text(2, 0), "1");  // the tab became one blank
    EXPECT_EQ(f.Fg.text(2, 3), " 10");
    EXPECT_TRUE(f.Command3.enabled());
    ASSERT_EQ(f.capacityPoints.size(), 2u);
    EXPECT_EQ(f.capacityPoints[1].Sd_C, 10.0);
    EXPECT_TRUE(platform.messages.empty());
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

TEST_F(CapacityTest, ShowDiagramMakesTheShortSpectrumAtTheScaleOfTheBox) {
    windows::Form9& f = form9();
    read_capacity(kHandCurve);
    press(f.Command3);
    run([&] { f.demand.xscale.set_text("0.5"); });
    press(f.demand.Command6);
    const windows::ProjectState& s = program.state;
    EXPECT_EQ(s.peakAccel, 0.5);
    ASSERT_EQ(s.specCount, 200);
    // The first pass works at T 0.01: soil I, low, S 1.5, T0 0.1, at the box's scale.
    EXPECT_DOUBLE_EQ(s.designSa(1), 0.5 * (1 + 1.5 * 0.01 / 0.1));
    EXPECT_EQ(f.shown, 1);
    EXPECT_TRUE(f.demand.Command7.enabled());
    EXPECT_TRUE(f.demand.Command6.enabled());
    EXPECT_FALSE(f.chart.picNemodar.ops().empty());
    EXPECT_EQ(f.chart.picNemodar.ops().front().color, 255);
}

// Ticks and labels of the time strip.
std::pair<std::size_t, std::size_t> ticks_and_labels(const forms::PictureBox& strip) {
    std::size_t ticks = 0, labels = 0;
    for (const auto& op : strip.ops()) (op.kind == forms::DrawOp::Kind::Text ? labels : ticks) += 1;
    return {ticks, labels};
}

TEST_F(CapacityTest, TheCodeSpectrumLabelsSomeSecondsAndAFileEverySecond) {
    windows::Form9& f = form9();
    read_capacity(kHandCurve);
    press(f.Command3);
    // 400 periods of 0.1 s: 40 s on 9165 twips, a label about every third second.
    run([&] {
        f.demand.tend.set_text("40");
        f.demand.xstep.set_text("0.1");
    });
    press(f.demand.Command6);
    auto [ticks, labels] = ticks_and_labels(f.chart.PicxSxale);
    EXPECT_EQ(ticks, 41u);
    EXPECT_EQ(labels, 14u);

    std::string lines;
    for (int i = 1; i <= 399; ++i) lines += "0 1\n";  // 400 elements, as the code spectrum had
    run([&] { f.demand.Check1.user_click(); });
    platform.file_answers.push_back(write("flat.txt", lines));
    press(f.demand.Command4);
    std::tie(ticks, labels) = ticks_and_labels(f.chart.PicxSxale);
    EXPECT_EQ(ticks, 41u);
    EXPECT_EQ(labels, 41u);
    // The slider draws again in the routine that drew last.
    run([&] { f.chart.Slider1.set_value(2); });
    EXPECT_EQ(f.chart.picNemodar.width(), 2 * 9165.0);
    EXPECT_TRUE(f.chart.HScroll1.enabled());
    std::tie(ticks, labels) = ticks_and_labels(f.chart.PicxSxale);
    EXPECT_EQ(labels, ticks);
    run([&] { f.chart.HScroll1.user_scroll(10); });
    EXPECT_EQ(f.chart.picNemodar.left(), -1000.0);
    std::tie(ticks, labels) = ticks_and_labels(f.chart.PicxSxale);
    EXPECT_EQ(labels, ticks);
}

TEST_F(CapacityTest, TheReadOutShowsPeriodAndOrdinate) {
    windows::Form9& f = form9();
    read_capacity(kHandCurve);
    press(f.Command3);
    press(f.demand.Command6);
    run([&] { f.chart.picNemodar.MouseMove(0, 0, 10.2, 1.0); });
    // Index 10 at the pointer's 10.2 steps of 0.02 s; the plateau 2.5 of soil I at scale 1.
    EXPECT_EQ(f.chart.readout->name(), "Label14");
    EXPECT_EQ(f.chart.readout->caption(), "T(Period): 0.20, B.A: 2.50  ");
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

TEST_F(CapacityTest, TheSpectrumFileGivesPeriodsAndSaAndCalculateSaInterpolates) {
    windows::Form9& f = form9();
    read_capacity("Teff\n 1 0.75 5 0 0 0 0 0 1\n 2 1.0 5 1 1 0 0 0 1\n 3 0.3 5 2 2 0 0 0 1\n"
                  " 4 2.0 5 3 3 0 0 0 1\n");
    press(f.Command3);
    run([&] { f.demand.Check1.user_click(); });
    platform.file_answers.push_back(write("spectrum.txt", "0.5 1.0\n1.0\t0.6\n1.5 0.4\n"));
    press(f.demand.Command4);
    const windows::ProjectState& s = program.state;
    ASSERT_EQ(s.designAux.ubound(), 4);  // one more than the lines, left 0
    EXPECT_EQ(s.designAux(2), 1.0);
    EXPECT_EQ(s.designSa(2), 0.6);
    EXPECT_EQ(s.designAux(4), 0.0);
    EXPECT_TRUE(f.demand.fromFile);
    EXPECT_TRUE(f.demand.Command7.enabled());

    press(f.demand.Command7);
    EXPECT_TRUE(f.frame2_internal.visible());
    EXPECT_TRUE(f.Command3.enabled());
    EXPECT_TRUE(f.FG2.redraw());
    ASSERT_EQ(f.FG2.rows(), 201);  // tend 4 / step 0.02 = 200
    // Teff 0.75 between 0.5 and 1: 1 - 0.4 * 0.5 = 0.8, from the file's spectrum.
    EXPECT_EQ(f.FG2.text(1, 1), "0.8");
    EXPECT_EQ(f.saAtStep(30), 0.92);  // period 0.6
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(CapacityTest, CalculateSaWithAZeroStepSaysSoAndACurveLongerThanTheGridFails) {
    windows::Form9& f = form9();
    read_capacity(kHandCurve);
    press(f.Command3);
    press(f.demand.Command6);
    run([&] { f.demand.xstep.set_text("0"); });
    press(f.demand.Command7);
    EXPECT_EQ(platform.message_texts(), std::vector<std::string>{"Error Time Step"});
    EXPECT_TRUE(f.FG2.redraw());

    // Three periods for six capacity rows: the table is too short.
    run([&] {
        f.demand.xstep.set_text("1");
        f.demand.tend.set_text("3");
    });
    press(f.demand.Command7);
    ASSERT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(platform.messages[1].text, "Subscript out of range");
    EXPECT_EQ(platform.messages[1].title, "Error");
    EXPECT_EQ(f.FG2.rows(), 4);  // as far as it got
}

// Files without the capacity table layout (an empty file, the Sd-Sa curves people keep) read as
// no steps, as before; the calculations that need steps then say what the file lacks.
TEST_F(CapacityTest, AFileWithoutStepsIsNamedSoWhereStepsAreNeeded) {
    // The capacity reader finds no row: the import says why, and the table stays empty.
    for (const std::string& path : {write("empty.txt", "")}) {
        SCOPED_TRACE(path);
        program.unload<windows::Form9>();
        platform.messages.clear();
        run([&] { form9().Text1.set_text(path); });
        press(form9().Command2);
        ASSERT_EQ(form9().Fg.rows(), 1);
        ASSERT_EQ(platform.messages.size(), 1u);
        EXPECT_EQ(platform.messages[0].text,
                  path + ": no numeric rows: expected rows holding at least two numbers (displacement and force)");
        platform.messages.clear();
        press(form9().Command3);
        press(form9().demand.Command6);
        press(form9().demand.Command7);
        press(form9().Command8);
        press(form9().Command3);
        press(form9().Command9);
        EXPECT_TRUE(platform.runtime_errors.empty());
        ASSERT_EQ(platform.messages.size(), 2u);
        for (const Message& m : platform.messages) {
            EXPECT_EQ(m.text, windows::kNoCapacitySteps);
            EXPECT_EQ(m.icon, forms::MsgIcon::Critical);
        }
    }
}

// A view finds each widget by its control's name: no name may stand twice in a window.
TEST_F(CapacityTest, EveryControlNameStandsOnceInEachWindow) {
    std::vector<const forms::Form*> forms = {&form9(), &program.form<windows::Form10>(),
                                             &program.form<windows::Form11>()};
    for (const forms::Form* f : forms) {
        std::set<std::string> names;
        for (const auto& c : f->controls())
            EXPECT_TRUE(names.insert(c->name()).second) << f->name() << " " << c->name();
    }
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

TEST_F(CapacityTest, TheDemandChartsValueLabelsStandClear) {
    windows::Form9& f = form9();
    read_capacity(kHandCurve);
    press(f.Command3);
    press(f.demand.Command6);
    // Plateau 2.5: the range 3; every 0.2 would stand 110 twips apart, every 0.6 stands 330.
    expect_value_labels_clear(f.chart.PicySxale, 8.25 * 23.5, 2);
    auto labels = value_labels(f.chart.PicySxale);
    EXPECT_EQ(labels.front().second, "3.0");
    EXPECT_EQ(labels.back().second, "-3.0");
    // A scroll writes the strips again, as clear.
    run([&] { f.chart.Slider1.set_value(2); });
    run([&] { f.chart.HScroll1.user_scroll(5); });
    EXPECT_EQ(value_labels(f.chart.PicySxale), labels);
    // So does the spectrum file's routine.
    std::string lines;
    for (int i = 1; i <= 50; ++i) lines += std::to_string(i * 0.02) + " 2.5\n";
    run([&] { f.demand.Check1.user_click(); });
    platform.file_answers.push_back(write("flat.txt", lines));
    press(f.demand.Command4);
    expect_value_labels_clear(f.chart.PicySxale, 8.25 * 23.5, 2);
    EXPECT_EQ(value_labels(f.chart.PicySxale), labels);
}

}  // namespace
}  // namespace tv::test
