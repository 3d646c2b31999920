// The record windows at their edges: failing exports, memory, the closing chain, failing
// integrator runs inside the comparison, a zero average.
#include "spectra_fixture.h"

#include <sys/resource.h>

#include "text/number_text.h"
#include "windows/road_reports.h"
#include "windows/spectra/comparison_window.h"

namespace tv::test {
namespace {

class SpectraEdgeTest : public SpectraTest {
protected:
    std::size_t questions() const {
        std::size_t n = 0;
        for (const auto& m : platform.messages) n += m.text == "Do you want to close the form?";
        return n;
    }
};

TEST_F(SpectraEdgeTest, AGridTooLargeForMemoryIsReportedByTheIntegratorsTrap) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the address sanitizer's shadow memory does not fit under an address-space limit";
#endif
    to_response();
    windows::Form3& f = form3();
    state().specCount = 2'000'000'000;  // sixteen gigabytes for each spectrum
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_AS, &before), 0);
    rlimit tight = before;
    tight.rlim_cur = rlim_t{4} << 30;
    ASSERT_EQ(setrlimit(RLIMIT_AS, &tight), 0);
    press(f.Command1);
    setrlimit(RLIMIT_AS, &before);
    ASSERT_FALSE(platform.messages.empty());
    EXPECT_EQ(platform.messages[0].text, "Out of memory");
    EXPECT_EQ(platform.messages[0].title, "Error");
    EXPECT_EQ(platform.messages[0].icon, forms::MsgIcon::Critical);
    EXPECT_FALSE(f.Command4.enabled());
    EXPECT_TRUE(f.Picbar.visible());
}

TEST_F(SpectraEdgeTest, TheReportsSpectraHoldEveryOrdinateOfTheGrid) {
    to_comparison();
    press(form4().Command1);
    std::size_t longest = 0;
    for (const forms::Page& page : windows::ground_motion_report(program, {}))
        for (const forms::PageOp& op : page.ops)
            if (op.kind == forms::PageOp::Kind::Polyline) longest = std::max(longest, op.points.size());
    EXPECT_EQ(longest, 2u * static_cast<std::size_t>(state().specCount));
}

TEST_F(SpectraEdgeTest, ClosingForm2AsksARefusingForm4Again) {
    to_comparison();
    platform.message_answers = {forms::MsgResult::No, forms::MsgResult::Yes};
    program.run([&] { program.unload(form2()); });
    EXPECT_EQ(questions(), 2u);
    EXPECT_FALSE(program.is_loaded<windows::Form2>());
    EXPECT_FALSE(program.is_loaded<windows::Form3>());
    EXPECT_FALSE(program.is_loaded<windows::Form4>());
    EXPECT_TRUE(program.is_loaded<windows::Form1>());
}

TEST_F(SpectraEdgeTest, ClosingForm1UnloadsEveryLaterWindowUnlessForm4RefusesEveryTime) {
    using forms::MsgResult;
    // No, No: Form3 and Form2 go; the third question, Form1's own, closes Form4 too, or not.
    for (const MsgResult third : {MsgResult::Yes, MsgResult::No}) {
        to_comparison();
        platform.messages.clear();
        platform.message_answers = {MsgResult::No, MsgResult::No, third};
        program.run([&] { program.unload(form1()); });
        EXPECT_EQ(questions(), 3u);
        EXPECT_FALSE(program.is_loaded<windows::Form1>());
        EXPECT_FALSE(program.is_loaded<windows::Form2>());
        EXPECT_FALSE(program.is_loaded<windows::Form3>());
        EXPECT_EQ(program.is_loaded<windows::Form4>(), third == MsgResult::No);
        EXPECT_EQ(state().recordCount, 0);
        EXPECT_EQ(state().componentLetter, "X");
    }
}

TEST_F(SpectraEdgeTest, AnIntegratorFailureInsideTheComparisonIsToldAsErrAndTheCalculationGoesOn) {
    // The grid is drawn to 2 s and Next is pressed with 4 s typed: 400 periods for 200 ordinates.
    to_design();
    windows::Form2& f2 = form2();
    program.run([&] { f2.tend.set_text("2"); });
    press(f2.Command1);
    program.run([&] { f2.tend.set_text("4"); });
    press(f2.xnext);
    press(form3().Command1);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, "Error");
    press(form3().Command4);
    windows::Form4& f = form4();
    program.run([&] { f.tend.set_text("2"); });
    platform.messages.clear();
    press(f.Command1);
    ASSERT_EQ(platform.messages.size(), 2u);  // once for each run of the integrator
    for (const auto& m : platform.messages) {
        EXPECT_EQ(m.title, "Err");
        EXPECT_EQ(m.text, "Subscript out of range");
        EXPECT_EQ(m.icon, forms::MsgIcon::Critical);
    }
    ASSERT_TRUE(platform.runtime_errors.empty()) << platform.runtime_errors[0].second;
    // The comparison went on with the 200 ordinates the runs stored.
    EXPECT_TRUE(f.Picbar.visible());
    EXPECT_TRUE(f.Command3.enabled());
    EXPECT_GT(state().specX1(200), 0);
    EXPECT_GT(f.averageSpectrum(200), 0);
    const double z = text::val(f.xzarib.text());
    EXPECT_GE(z, 1);
    EXPECT_EQ(state().accelX1(3), z * state().baseAccelX1(3));
}

using DuringRunTest = SpectraTest;

TEST_F(DuringRunTest, AnExportBetweenPeriodsCutsTheArraysAndTheRunStopsAtTheCut) {
    to_response();
    windows::Form3& f = form3();
    program.run([&] { f.Command1.press(); });
    const std::vector<double> clean = state().specX1.raw();
    ASSERT_TRUE(f.Command5.enabled());  // Export stays open through the next Calculate
    platform.messages.clear();
    const int first_call = platform.do_events_calls + 1;
    platform.during = [&](int call) {
        if (call != first_call) return;
        platform.file_answers.push_back((dir / "during.txt").string());
        f.Command5.press();
    };
    program.run([&] { f.Command1.press(); });
    platform.during = nullptr;
    // The export wrote period 1 and cut everything to the last line, 9; periods 2 to 9 still ran,
    // period 10 found no place and the trap told it.
    ASSERT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(platform.messages[0].text, "Done");
    EXPECT_EQ(platform.messages[1].text, "Subscript out of range");
    EXPECT_EQ(platform.messages[1].title, "Error");
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_EQ(state().specX1.ubound(), 9);
    EXPECT_EQ(state().accelX1.ubound(), 9);
    for (long j = 1; j <= 9; ++j) EXPECT_EQ(state().specX1(j), clean[static_cast<std::size_t>(j)]) << j;
    EXPECT_TRUE(f.Picbar.visible());  // the trap leaves the panel; Calculate then opens its buttons
    EXPECT_EQ(lines_of(dir / "during.txt").size(), 10u);
}

TEST_F(DuringRunTest, ATickMadeWhileTheRunGoesOnCountsFromTheNextPeriod) {
    to_response();
    windows::Form3& f = form3();
    program.run([&] { f.Command1.press(); });
    const std::vector<double> psa = state().specY1.raw();
    program.run([&] { f.Check1.user_click(); });
    program.run([&] { f.Command1.press(); });
    const std::vector<double> sd = state().specY1.raw();
    program.run([&] { f.Check1.user_click(); });  // back to none
    ASSERT_EQ(f.Check1.value(), 0);

    const int first_call = platform.do_events_calls + 3;  // after the third period
    platform.during = [&](int call) {
        if (call == first_call) f.Check1.user_click();
    };
    program.run([&] { f.Command1.press(); });
    platform.during = nullptr;
    const auto& mixed = state().specY1;
    for (long j = 1; j <= 3; ++j) EXPECT_EQ(mixed(j), psa[static_cast<std::size_t>(j)]) << j;
    for (long j = 4; j <= 400; ++j) EXPECT_EQ(mixed(j), sd[static_cast<std::size_t>(j)]) << j;
    EXPECT_NE(psa[5], sd[5]);
    EXPECT_EQ(f.Label4.caption(), "(Displacement)");
}

}  // namespace
}  // namespace tv::test
