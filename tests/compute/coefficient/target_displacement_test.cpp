#include "compute/coefficient/target_displacement.h"

#include <gtest/gtest.h>

#include <cmath>

#include "compute/coefficient/effective_period.h"
#include "text/number_text.h"
#include "text/rounding.h"
#include "text/runtime_error.h"
#include "support/errors.h"

namespace tv::compute {
namespace {

using tv::test::error_of;

TEST(EffectivePeriod, FromKiOverKe) {
    // Yield point (1.99, 2855.7214): Ke = 1435.0359; with Ti = 1, Te = (1500 / Ke)^0.5 = 1.022384.
    double Ke = effective_stiffness(1.99, 2855.7214);
    EXPECT_DOUBLE_EQ(Ke, 2855.7214 / 1.99);
    EXPECT_EQ(effective_period(1, 1500, Ke), std::pow(1500 / Ke, 0.5));
    EXPECT_NEAR(effective_period(1, 1500, Ke), 1.022384, 1e-6);
    EXPECT_NEAR(effective_period(0.8, 1500, Ke), 0.8 * 1.022384, 1e-6);
    EXPECT_EQ(effective_period(0, 1500, Ke), 0.0);
    EXPECT_EQ(error_of([] { effective_period(1, 1500, -200); }), text::kInvalidCall);
    EXPECT_EQ(error_of([] { effective_period(1, 1500, 0); }), text::kDivisionByZero);
    EXPECT_EQ(error_of([] { effective_stiffness(0, 100); }), text::kDivisionByZero);
}

TEST(C0Coefficient, Table) {
    // The code's table for 1 to 5 stories, one column per system.
    const double c0[5][3] = {{1, 1, 1}, {1.15, 1.2, 1.2}, {1.2, 1.2, 1.3}, {1.2, 1.25, 1.35}, {1.2, 1.3, 1.4}};
    for (int n = 1; n <= 5; ++n)
        for (int c = 1; c <= 3; ++c) EXPECT_EQ(c0_coefficient(n, c), c0[n - 1][c - 1]) << n << " stories, column " << c;
    EXPECT_EQ(c0_coefficient(6, 1), 1.2);
    EXPECT_EQ(c0_coefficient(12, 2), 1.3);
}

TEST(C0Coefficient, ThirdColumnAboveFiveStories) {
    // (7 + 0.1 x 2) / 5 = 1.44 as the box shows it; from 10 stories on 1.5.
    ASSERT_TRUE(c0_coefficient(7, 3));
    EXPECT_EQ(text::to_text(*c0_coefficient(7, 3)), "1.44");
    EXPECT_EQ(text::to_text(*c0_coefficient(9, 3)), "1.48");
    EXPECT_EQ(c0_coefficient(10, 3), 1.5);
    EXPECT_EQ(c0_coefficient(25, 3), 1.5);
    EXPECT_EQ(c0_coefficient(6.5, 3), (7 + 0.1 * 1.5) / 5);
}

TEST(C0Coefficient, NoRowNoValue) {
    EXPECT_FALSE(c0_coefficient(0, 1));
    EXPECT_FALSE(c0_coefficient(2.5, 2));
    EXPECT_FALSE(c0_coefficient(-3, 3));
}

TEST(CmFactor, OneOrTwoStoriesGiveOne) {
    for (int column = 1; column <= 4; ++column) {
        EXPECT_EQ(cm_factor(1, column), 1.0);
        EXPECT_EQ(cm_factor(2, column), 1.0);
    }
    EXPECT_EQ(cm_factor(3, 1), 0.9);
    EXPECT_EQ(cm_factor(3, 2), 0.9);
    EXPECT_EQ(cm_factor(3, 3), 0.8);
    EXPECT_EQ(cm_factor(3, 4), 1.0);
    EXPECT_EQ(cm_factor(0, 3), 0.8);
}

TEST(SoilConstant, LastCheckedInTestOrderStands) {
    EXPECT_EQ(soil_constant(false, false, true), 60.0);
    EXPECT_EQ(soil_constant(true, false, false), 130.0);
    EXPECT_EQ(soil_constant(false, true, false), 90.0);
    EXPECT_EQ(soil_constant(true, false, true), 130.0);
    EXPECT_EQ(soil_constant(true, true, true), 90.0);
    EXPECT_EQ(soil_constant(false, false, false), 0.0);
}

TEST(StrengthRatio, AndAlpha) {
    // 0.9 x (0.8 / (2800 / 10000)) = 0.9 x 2.857143 = 2.571429.
    EXPECT_NEAR(strength_ratio(0.9, 0.8, 2800, 10000), 2.571429, 1e-6);
    // ((3300 - 2855.72) / (8 - 1.99)) / 1500 = (444.28 / 6.01) / 1500 = 0.0492823.
    EXPECT_NEAR(post_yield_alpha(3300, 2855.72, 8, 1.99, 1500), 0.0492823, 1e-7);
    EXPECT_EQ(error_of([] { post_yield_alpha(3300, 2855.72, 2, 2, 1500); }), text::kDivisionByZero);
    EXPECT_EQ(error_of([] { strength_ratio(1, 0.8, 2800, 0); }), text::kDivisionByZero);
}

TEST(C1Coefficient, BranchEdges) {
    const double R = 3, a = 60;
    EXPECT_EQ(c1_coefficient(1.0000001, R, a), 1.0);
    EXPECT_EQ(c1_coefficient(1, R, a), 1 + (R - 1) / (a * 1.0));  // 1.033333: middle branch at 1 s
    EXPECT_NEAR(c1_coefficient(0.5, R, a), 1 + 2.0 / 15.0, 1e-15);
    EXPECT_EQ(c1_coefficient(0.2, R, a), 1 + 25 * (R - 1) / a);  // 1.833333: last branch at 0.2 s
    EXPECT_EQ(c1_coefficient(0.1, R, a), 1 + 25 * (R - 1) / a);
    EXPECT_EQ(c1_coefficient(0.2000001, R, a), 1 + (R - 1) / (a * std::pow(0.2000001, 2)));
    EXPECT_EQ(error_of([] { c1_coefficient(0.1, 3, 0); }), text::kDivisionByZero);
}

TEST(C2Coefficient, BranchEdge) {
    EXPECT_EQ(c2_coefficient(0.7, 3), 1.0);
    // 1 + (1 / 800) (2 / 0.69)^2 = 1 + 8.401596 / 800 = 1.010502.
    EXPECT_NEAR(c2_coefficient(0.69, 3), 1.010502, 1e-6);
    EXPECT_EQ(error_of([] { c2_coefficient(0, 3); }), text::kDivisionByZero);
}

TEST(C1C2, StrengthRatioBelowOneIsNotClamped) {
    // R = 0.5, Te = 0.5, a = 60: C1 = 1 - 0.5 / 15 = 0.966667; C2 = 1 + (1/800) (-1)^2 = 1.00125.
    EXPECT_NEAR(c1_coefficient(0.5, 0.5, 60), 0.9666667, 1e-7);
    EXPECT_DOUBLE_EQ(c2_coefficient(0.5, 0.5), 1.00125);
}

TEST(C3Coefficient, OnlyNegativeAlphaWithRAtLeastOne) {
    // 1 + 0.05 x 2^1.5 / 0.5 = 1 + 0.05 x 2.828427 / 0.5 = 1.282843.
    EXPECT_NEAR(c3_coefficient(-0.05, 3, 0.5), 1.282843, 1e-6);
    EXPECT_EQ(c3_coefficient(-0.05, 1, 0.5), 1.0);  // R of 1 is the first branch, (R - 1)^1.5 = 0
    EXPECT_EQ(c3_coefficient(-0.05, 0.8, 0.5), 1.0);
    EXPECT_EQ(c3_coefficient(0.05, 3, 0.5), 1.0);
    EXPECT_EQ(c3_coefficient(0, 3, 0.5), 1.0);
}

TEST(TargetDisplacement, WithTheConstantsAsWritten) {
    // 1.3 x 1.1 x 1.05 x 0.8 x 981 x 0.25 / (4 x 3.1416^2) = 294.594300 / 39.478602 = 7.462126 cm.
    double d = target_displacement(1.3, 1.1, 1.05, 0.8, 0.5);
    EXPECT_NEAR(d, 7.462126, 1e-6);
    EXPECT_EQ(text::round_to(d, 2), 7.46);
    EXPECT_EQ(target_displacement(1.3, 1.1, 1.05, 0.8, 0), 0.0);
}

TEST(Rmax, LimitAndAlpha) {
    EXPECT_EQ(governing_displacement(5, 6), 6.0);
    EXPECT_EQ(governing_displacement(7, 6), 7.0);
    EXPECT_EQ(rmax_exponent(1), 1.0);
    EXPECT_NEAR(rmax_exponent(0.5), 1 + 0.15 * -0.6931472, 1e-7);
    EXPECT_EQ(error_of([] { rmax_exponent(0); }), text::kInvalidCall);
    EXPECT_EQ(rmax_ratio(8, 2, false, 0.05, 1), 4.0);
    EXPECT_DOUBLE_EQ(rmax_ratio(8, 2, true, 0.05, 1), 4 + 20.0 / 4);  // 0.05^-1 = 20
    EXPECT_DOUBLE_EQ(rmax_ratio(8, 2, true, -0.04, 0.5), 4 + 5.0 / 4);  // |-0.04|^-0.5 = 5
    EXPECT_EQ(error_of([] { rmax_ratio(8, 0, false, 0, 1); }), text::kDivisionByZero);
}

}  // namespace
}  // namespace tv::compute
