#include "compute/chart/chart_scaling.h"

#include <gtest/gtest.h>

#include "text/runtime_error.h"
#include "support/errors.h"

namespace cc = tv::compute::chart;

namespace {

using tv::test::error_of;

TEST(ChartScaling, LargestAbsTakesNegativesAndElementZero) {
    EXPECT_EQ(cc::largest_abs({-0.8, 0.3, -0.2}), 0.8);
    EXPECT_EQ(cc::largest_abs({0.0, 0.0}), 0.0);
    EXPECT_EQ(cc::largest_abs({}), 0.0);
}

TEST(ChartScaling, PeakFieldRangeIsTwentyPerCentOverTheLargerPeak) {
    EXPECT_DOUBLE_EQ(cc::peak_field_range(0.35, 1.5), 1.2 * 1.5);
    EXPECT_DOUBLE_EQ(cc::peak_field_range(1.5, 0.35), 1.2 * 1.5);
    // The peaks are rounded to 8 decimals before the comparison.
    EXPECT_EQ(cc::peak_field_range(0.123456789, 0.1), 1.2 * 0.12345679);
    EXPECT_EQ(cc::peak_field_range(0, 0), 0.0);
}

TEST(ChartScaling, ElementRangeRules) {
    EXPECT_EQ(cc::element_range(2.0, cc::RangeRule::Largest), 2.4);
    EXPECT_EQ(cc::element_range(2.0, cc::RangeRule::LargestWide), 3.0);
    EXPECT_EQ(cc::element_range(0.0, cc::RangeRule::Largest), 0.0);
    EXPECT_EQ(error_of([] { cc::element_range(1.0, cc::RangeRule::PeakFields); }), 5);
}

TEST(ChartScaling, CurveFactorBringsTheLargestSampleToThePeak) {
    // Peak fields 1.5 (range 1.8), largest sample 0.75: the curve doubles.
    EXPECT_DOUBLE_EQ(cc::curve_factor(1.8, 0.75), 2.0);
    EXPECT_EQ(error_of([] { cc::curve_factor(1.8, 0.0); }), 11);
    EXPECT_EQ(error_of([] { cc::curve_factor(0.0, 0.0); }), 6);
}

TEST(ChartScaling, WidthAndScrollReach) {
    EXPECT_EQ(cc::plot_width(1), 9165);
    EXPECT_EQ(cc::plot_width(4), 36660);
    EXPECT_EQ(cc::scroll_max(1), 0);
    EXPECT_EQ(cc::scroll_max(4), 275);  // 274.95
    EXPECT_EQ(cc::scroll_max(2), 92);   // 91.65
    EXPECT_EQ(cc::scroll_max(11), 916); // 916.5, the tie goes to even
    EXPECT_EQ(cc::scroll_max(358), 32719);  // 32719.05
    EXPECT_EQ(error_of([] { cc::scroll_max(359); }), 6);
    EXPECT_EQ(cc::scroll_left(50), -5000);
    EXPECT_EQ(cc::scroll_left(0), 0);
}

}  // namespace
