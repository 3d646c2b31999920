#include "compute/chart/chart_axes.h"

#include <gtest/gtest.h>

#include "text/format.h"
#include "text/runtime_error.h"
#include "support/errors.h"

namespace cc = tv::compute::chart;

namespace {

using tv::test::error_of;

// 100 twips a character: labels of one digit have a half width of 50.
double hundred_per_char(const std::string& s) { return 100.0 * static_cast<double>(s.size()); }

std::vector<double> labelled_seconds(const std::vector<cc::TimeTick>& ticks) {
    std::vector<double> out;
    for (const auto& t : ticks)
        if (t.labelled) out.push_back(t.second);
    return out;
}

TEST(TimeAxis, RecordOf3500LinesAtFiveMilliseconds) {
    // D = 17.5 s on 9165 twips: n = 1.5275, which the modulo takes as 2.
    double n = cc::time_label_step(17.5, 9165);
    EXPECT_NEAR(n, 1.5275, 1e-4);
    EXPECT_EQ(tv::text::format(n, "0.00"), "1.53");

    auto ticks = cc::time_ticks(3500, 9165, 0.005, 0, cc::TimeLabels::Spaced, hundred_per_char);
    ASSERT_EQ(ticks.size(), 18u);  // 0 to 17 s, one tick a second
    EXPECT_EQ(labelled_seconds(ticks), (std::vector<double>{0, 2, 4, 6, 8, 10, 12, 14, 16}));
    EXPECT_EQ(ticks[2].label, "2");
    EXPECT_EQ(ticks[2].line_width, 2);
    EXPECT_EQ(ticks[3].line_width, 1);
    EXPECT_TRUE(ticks[3].label.empty());
}

TEST(TimeAxis, PositionsCarryTheLastLabelsHalfWidth) {
    auto ticks = cc::time_ticks(3500, 9165, 0.005, 0, cc::TimeLabels::Spaced, hundred_per_char);
    // One second is 200 plot units of 9165 / 3500 twips each: 523.71 twips.
    EXPECT_EQ(ticks[0].x, 0 - 50);
    EXPECT_EQ(ticks[1].x, 524 - 50);
    EXPECT_EQ(ticks[2].x, 1047 - 50);
    EXPECT_EQ(ticks[10].x, 5237 - 100);  // "10" is two characters wide
    EXPECT_EQ(ticks[11].x, 5761 - 100);  // unlabelled: still the half width of "10"
}

TEST(TimeAxis, SpacingNeverCloserThanOneSecond) {
    // Slider 4: 36660 twips hold 17.5 s, n = 0.38, so every second gets its label.
    EXPECT_EQ(cc::time_label_step(17.5, 36660), 1.0);
    auto ticks = cc::time_ticks(3500, 36660, 0.005, 0, cc::TimeLabels::Spaced, hundred_per_char);
    EXPECT_EQ(labelled_seconds(ticks).size(), 18u);
    EXPECT_EQ(ticks[1].x, 2095 - 50);  // 2094.86 twips a second
}

TEST(TimeAxis, FractionalStepIsRoundedOnlyInTheModulo) {
    // 25 s and 35 s on 8000 twips: n = 2.5 and 3.5, which the modulo rounds to even, 2 and 4.
    EXPECT_EQ(cc::time_label_step(25, 8000), 2.5);
    auto a = cc::time_ticks(25, 8000, 1, 0, cc::TimeLabels::Spaced, hundred_per_char);
    EXPECT_EQ(labelled_seconds(a), (std::vector<double>{0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24}));
    auto b = cc::time_ticks(35, 8000, 1, 0, cc::TimeLabels::Spaced, hundred_per_char);
    EXPECT_EQ(labelled_seconds(b), (std::vector<double>{0, 4, 8, 12, 16, 20, 24, 28, 32}));
    // 2.6 is 3: labels stand 3 s apart, about 960 twips, not 800.
    auto c = cc::time_ticks(26, 8000, 1, 0, cc::TimeLabels::Spaced, hundred_per_char);
    EXPECT_EQ(labelled_seconds(c), (std::vector<double>{0, 3, 6, 9, 12, 15, 18, 21, 24}));
}

TEST(TimeAxis, ScrollShiftsEveryTickByHundredTwipsAStep) {
    auto at0 = cc::time_ticks(3500, 36660, 0.005, 0, cc::TimeLabels::Spaced, hundred_per_char);
    auto at50 = cc::time_ticks(3500, 36660, 0.005, 50, cc::TimeLabels::Spaced, hundred_per_char);
    ASSERT_EQ(at0.size(), at50.size());
    for (std::size_t i = 0; i < at0.size(); ++i) EXPECT_EQ(at0[i].x - at50[i].x, 5000) << i;
}

TEST(TimeAxis, WithoutTheSpacingRuleEveryTickIsLabelled) {
    auto ticks = cc::time_ticks(3500, 9165, 0.005, 0, cc::TimeLabels::EverySecond, hundred_per_char);
    EXPECT_EQ(labelled_seconds(ticks).size(), 18u);
}

TEST(TimeAxis, Failures) {
    // dt 0: no time, and the first tick divides 0 by 0.
    EXPECT_EQ(error_of([] { cc::time_ticks(3500, 9165, 0, 0, cc::TimeLabels::Spaced, hundred_per_char); }), 6);
    // A plot of no user width cannot convert to twips.
    EXPECT_EQ(error_of([] { cc::time_ticks(0, 9165, 0.01, 0, cc::TimeLabels::Spaced, hundred_per_char); }), 5);
    EXPECT_EQ(error_of([] { cc::time_label_step(1, 0); }), 11);
    // A negative step: no time, no ticks.
    EXPECT_TRUE(cc::time_ticks(3500, 9165, -0.01, 0, cc::TimeLabels::Spaced, hundred_per_char).empty());
}

std::vector<std::string> labels(const std::vector<cc::ValueTick>& ticks) {
    std::vector<std::string> out;
    for (const auto& t : ticks) out.push_back(t.label);
    return out;
}

TEST(ValueAxis, LabelsCountFromTheLowestNotFromZero) {
    // Peak 1.5, range 1.8: the plot's scale height is -3.6; step 4 tenths.
    auto ticks = cc::value_ticks(-3.6, 4, cc::ValueSteps::PeakRule);
    EXPECT_EQ(labels(ticks), (std::vector<std::string>{"-1.8", "-1.4", "-1.0", "-0.6", "-0.2", "0.2", "0.6", "1.0",
                                                        "1.4", "1.8"}));
    // The strip runs doubled and upside down: value -1.8 stands at strip position 3.6.
    EXPECT_DOUBLE_EQ(ticks[0].tick_y, 3.6);
    EXPECT_DOUBLE_EQ(ticks[0].text_y, 3.6 - 0.05);
    EXPECT_DOUBLE_EQ(ticks.back().tick_y, -3.6);
}

TEST(ValueAxis, EveryTenthWhenTheStepIsOne) {
    auto ticks = cc::value_ticks(-0.6, 1, cc::ValueSteps::PeakRule);  // range 0.3
    ASSERT_EQ(ticks.size(), 7u);
    EXPECT_EQ(ticks.front().label, "-0.3");
    EXPECT_EQ(ticks[3].label, "0.0");
    EXPECT_EQ(ticks.back().label, "0.3");
}

TEST(ValueAxis, FourierStartsAtHalfTheRange) {
    // Range 12: j from Int(6) to 120.
    auto ticks = cc::value_ticks(-24, 1, cc::ValueSteps::Fourier);
    EXPECT_EQ(ticks.front().j, 6);
    EXPECT_EQ(ticks.front().label, "0.6");
    EXPECT_EQ(ticks.back().j, 120);
    EXPECT_EQ(ticks.size(), 115u);
}

TEST(ValueAxis, RangeZeroGivesTheZeroTickOnly) {
    auto ticks = cc::value_ticks(0, 1, cc::ValueSteps::PeakRule);
    ASSERT_EQ(ticks.size(), 1u);
    EXPECT_EQ(ticks[0].label, "0.0");
}

}  // namespace
