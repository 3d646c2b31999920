#include "compute/capacity/capacity_sweep.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tv::compute {
namespace {

TEST(DampingModification, TypesAndTheirLimits) {
    EXPECT_EQ(damping_modification(1, 16.25, 16.25 / 63.7, 0.0), 1.0);
    EXPECT_DOUBLE_EQ(damping_modification(1, 20.0, 20.0 / 63.7, 0.0), 1.13 - 0.51 * (20.0 / 63.7));
    EXPECT_EQ(damping_modification(2, 25.0, 25.0 / 63.7, 0.0), 0.67);
    EXPECT_DOUBLE_EQ(damping_modification(2, 30.0, 30.0 / 63.7, 0.0), 0.845 - 0.446 * (30.0 / 63.7));
    EXPECT_EQ(damping_modification(3, 500.0, 500.0 / 63.7, 0.0), 0.33);
    EXPECT_EQ(damping_modification(0, 10.0, 0.1, 0.7), 0.7);
}

TEST(ReductionFactors, LowDampingAndTheLowerLimits) {
    ReductionFactors five = reduction_factors(1, 5.0, {});
    EXPECT_NEAR(five.SRA, 2.1156 / 2.12, 1e-4);
    EXPECT_NEAR(five.SRV, 1.6501 / 1.65, 1e-4);
    // Beff 100: SRA 0.037 and SRV 0.256 before the limits.
    ReductionFactors a = reduction_factors(1, 100.0, {}), b = reduction_factors(2, 100.0, {}),
                     c = reduction_factors(3, 100.0, {});
    EXPECT_EQ(a.SRA, 0.33);
    EXPECT_EQ(a.SRV, 0.5);
    EXPECT_EQ(b.SRA, 0.44);
    EXPECT_EQ(b.SRV, 0.56);
    EXPECT_EQ(c.SRA, 0.56);
    EXPECT_EQ(c.SRV, 0.67);
    // Only the limit of the factor below it applies: Beff 30 keeps SRA 0.4211 for type A.
    ReductionFactors thirty = reduction_factors(1, 30.0, {});
    EXPECT_NEAR(thirty.SRA, (3.21 - 0.68 * std::log(30.0)) / 2.12, 1e-15);
    EXPECT_EQ(reduction_factors(1, 0.0, {0.4, 0.6}).SRV, 0.6);
    EXPECT_EQ(reduction_factors(1, -3.0, {0.4, 0.6}).SRA, 0.4);
}

}  // namespace
}  // namespace tv::compute
