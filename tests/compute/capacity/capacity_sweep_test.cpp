#include "compute/capacity/capacity_sweep.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "text/runtime_error.h"

namespace tv::compute {
namespace {

// Four decimals, as the table shows the sweep.
constexpr double k4 = 5e-5;

// The sweep's rows over a list of steps, each with the demand of its row.
struct Sweep {
    CapacitySweep sweep;
    std::vector<SweepRow> rows;
    Sweep(const std::vector<SweepStep>& steps, const std::vector<double>& Sa, SweepSettings settings) : sweep(settings) {
        for (std::size_t i = 0; i < steps.size(); ++i) {
            rows.emplace_back();
            sweep.row(steps[i], [&] { return Sa[i]; }, rows.back());
        }
    }
    const SweepRow& operator[](int i) const { return rows.at(static_cast<std::size_t>(i - 1)); }
    DemandRow demand(double T, double Sa) const {
        DemandRow r;
        sweep.demand(T, Sa, r);
        return r;
    }
};

// A hand-made curve: (T, d, a) = (0.3, 0, 0), (0.4, 1, 0.4), (0.5, 2, 0.8), (0.6, 4, 1.0),
// (0.8, 6, 1.1), PFPhi 1.2; g 1000, T0 0.5, the slope at the third row.
const std::vector<SweepStep> kHandCurve = {
    {0.3, 0, 0, 1.2}, {0.4, 1, 0.4, 1.2}, {0.5, 2, 0.8, 1.2}, {0.6, 4, 1.0, 1.2}, {0.8, 6, 1.1, 1.2}};
const std::vector<double> kHandDemand = {1.0, 0.9, 0.85, 0.8, 0.3};
SweepSettings hand(int kind = 1, double m = 2) { return {1000, 0.5, m, kind}; }

TEST(CapacitySweep, HandCurveRowByRow) {
    const Sweep s(kHandCurve, kHandDemand, hand());
    EXPECT_EQ(s.sweep.slopeK0(), 0.4);  // row 3, i - 1 = m = 2: 0.8 / 2
    // Row 1 reads 0 and 0: no energy, no damping, nothing reduced.
    EXPECT_TRUE(std::isnan(s[1].B0));
    EXPECT_EQ(s[1].SRA, 0.0);
    EXPECT_EQ(s[1].SaRed, 0.0);
    // Row 2: no slope yet, so B0 stays 0 and Beff = 5: SRA = (3.21 - 0.68 ln 5) / 2.12,
    // SRV = (2.31 - 0.41 ln 5) / 1.65.
    EXPECT_EQ(s[2].B0, 0.0);
    EXPECT_EQ(s[2].Beff, 5.0);
    EXPECT_EQ(s[2].K, 1.0);
    EXPECT_NEAR(s[2].SRA, 0.9979, k4);
    EXPECT_NEAR(s[2].SRV, 1.0001, k4);
    EXPECT_DOUBLE_EQ(s[2].A, 0.2);
    // Row 4: A = 0.2 + 0.6 + 1.8 = 2.6; A1 = (4 - (1.6 - 1) / 0.4) * 1 / 2 = 1.25;
    // ED = 4 (2.6 - 1.25) = 5.4; Es0 = 2; B0 = 100 / 12.5664 * 2.7 = 21.4859;
    // Lambda = 0.3373; type A above 16.25: K = 1.13 - 0.51 Lambda = 0.9580;
    // Beff = 63.7 K Lambda + 5 = 25.5830; dy = (2.6 - 2) / 0.3 = 2, ay = 0.8.
    const SweepRow& r4 = s[4];
    EXPECT_DOUBLE_EQ(r4.A, 2.6);
    EXPECT_DOUBLE_EQ(r4.A1, 1.25);
    EXPECT_DOUBLE_EQ(r4.ED, 5.4);
    EXPECT_EQ(r4.Es0, 2.0);
    EXPECT_NEAR(r4.B0, 21.4859, k4);
    EXPECT_NEAR(r4.Lambda, 0.3373, k4);
    EXPECT_NEAR(r4.K, 0.9580, k4);
    EXPECT_NEAR(r4.Beff, 25.5830, k4);
    EXPECT_NEAR(r4.SRA, 0.4743, k4);
    EXPECT_NEAR(r4.SRV, 0.5944, k4);
    EXPECT_DOUBLE_EQ(r4.dy, 2.0);
    EXPECT_DOUBLE_EQ(r4.ay, 0.8);
    // T 0.6 >= T0: SaRed = SRV * 0.8 = 0.4755; SdRed = 1000 * 0.4755 * (0.6 / 2 pi)^2 = 4.3364.
    EXPECT_NEAR(r4.SaRed, 0.4755, k4);
    EXPECT_NEAR(r4.SdRed, 4.3364, k4);
    EXPECT_NEAR(r4.final, 0.3364, k4);
    // Row 5: ED = 4 (4.7 - 1.5125) = 12.75; SdRed 2.6139 < 6.
    EXPECT_DOUBLE_EQ(s[5].ED, 12.75);
    EXPECT_NEAR(s[5].B0, 30.7458, k4);
    EXPECT_NEAR(s[5].final, -3.3861, k4);
}

TEST(CapacitySweep, HandCurveCrossing) {
    const Sweep s(kHandCurve, kHandDemand, hand());
    EXPECT_FALSE(s[4].crossing);
    ASSERT_TRUE(s[5].crossing);
    // final 0.3364 at row 4, -3.3861 at row 5: theta = 0.3364 / 3.7225 = 0.0904.
    // d* = 4 + 2 theta, a* = 1 + 0.1 theta, target* = 1.2 d*; SRA*, SRV*, Beff* between
    // rows 4 and 5 (SRA 0.4743 -> 0.4008, SRV 0.5944 -> 0.5375, Beff 25.583 -> 32.174).
    const SweepCrossing& x = s[5].at;
    EXPECT_NEAR(x.targetStar, 5.0169, k4);
    EXPECT_NEAR(x.SRA, 0.4676, k4);
    EXPECT_NEAR(x.SRV, 0.5893, k4);
    EXPECT_NEAR(x.Beff, 26.1787, k4);
    EXPECT_NEAR(x.d, 4.1808, k4);
    EXPECT_NEAR(x.a, 1.0090, k4);
    EXPECT_DOUBLE_EQ(x.dyPrev, 2.0);  // the bilinear point of row 4
    EXPECT_DOUBLE_EQ(x.ayPrev, 0.8);
    EXPECT_DOUBLE_EQ(x.targetPrev, 4.8);
    EXPECT_DOUBLE_EQ(x.target, 7.2);
}

TEST(CapacitySweep, DemandWithTheCrossingsFactors) {
    const Sweep s(kHandCurve, kHandDemand, hand());
    // T 0.2 below T0: SRA* 0.46764 * 1.0; Sd = 1000 * 1.0 * (0.2 / 2 pi)^2.
    const DemandRow low = s.demand(0.2, 1.0);
    EXPECT_NEAR(low.Sd, 1.0132, k4);
    EXPECT_NEAR(low.SaRed, 0.4676, k4);
    EXPECT_NEAR(low.SdRed, 0.4738, k4);
    // T 0.6 from T0 on: SRV* 0.58928 * 0.9.
    EXPECT_NEAR(s.demand(0.6, 0.9).SdRed, 4.8362, k4);
    EXPECT_NEAR(s.demand(1.2, 0.4).Sd, 14.5903, k4);
    // Without a crossing nothing is reduced.
    const Sweep none(kHandCurve, {0, 0, 0, 0, 0}, hand());
    EXPECT_FALSE(none[5].crossing);
    EXPECT_NEAR(none[4].final, -4.0, k4);
    EXPECT_EQ(none.demand(0.6, 0.9).SaRed, 0.0);
}

// With m beyond the curve the slope stays 0: B0 stays 0, every row has Beff 5, SRV 1.00008,
// and with T 0.6 everywhere SdRed = 1000 * 1.00008 * Sa * 0.0091189.
const std::vector<SweepStep> kFlatDamping = {
    {0.6, 1, 0.5, 1.5}, {0.6, 2, 0.8, 1.5}, {0.6, 3, 1.0, 1.5}, {0.6, 4, 1.1, 1.5}, {0.6, 5, 1.15, 1.5}};

TEST(CapacitySweep, TwoCrossingsTheLastOneStands) {
    // final: 0.8239, -1.0880, 1.5598, -1.2641, -3.1761.
    const Sweep s(kFlatDamping, {0.2, 0.1, 0.5, 0.3, 0.2}, hand(1, 100));
    EXPECT_TRUE(s[2].crossing);
    ASSERT_TRUE(s[4].crossing);
    // Second crossing between d 3 and 4: theta = 1.5598 / 2.8239; target* = 1.5 d*.
    const SweepCrossing& x = s[4].at;
    EXPECT_NEAR(x.targetStar, 5.3285, k4);
    EXPECT_NEAR(x.SRA, 0.9979, k4);
    EXPECT_NEAR(x.SRV, 1.0001, k4);
    EXPECT_NEAR(x.Beff, 5.0, k4);
    EXPECT_NEAR(x.d, 3.5524, k4);
    EXPECT_NEAR(x.a, 1.0552, k4);
    EXPECT_NEAR(x.dyPrev, -0.1, k4);  // dy of row 3 with a zero slope
    EXPECT_EQ(x.ayPrev, 0.0);
    // The demand takes the factors of the last crossing.
    EXPECT_NEAR(s.demand(0.6, 1.0).SaRed, x.SRV, 1e-15);
}

TEST(CapacitySweep, PlateauCapOnceTwoRowsAgree) {
    // Rows 1 and 2 give the same reduced demand: it becomes the cap for every later row.
    const Sweep s(kFlatDamping, {0.2, 0.2, 0.5, 0.1, 0.6}, hand(1, 100));
    EXPECT_NEAR(s[2].SaRed, 0.2, k4);
    EXPECT_EQ(s[3].Sa, 0.5);
    EXPECT_NEAR(s[3].SaRed, 0.2, k4);
    EXPECT_NEAR(s[4].SaRed, 0.1, k4);
    EXPECT_NEAR(s[5].SaRed, 0.2, k4);
}

TEST(CapacitySweep, StructureTypesBAndC) {
    const Sweep b(kHandCurve, kHandDemand, hand(2));
    EXPECT_EQ(b[4].K, 0.67);               // B0 21.49 up to 25
    EXPECT_NEAR(b[5].K, 0.6297, k4);       // 0.845 - 0.446 * 30.7458 / 63.7
    const Sweep c(kHandCurve, kHandDemand, hand(3));
    EXPECT_EQ(c[2].K, 0.33);
    EXPECT_EQ(c[2].Beff, 5.0);
    EXPECT_NEAR(c[4].Beff, 12.0903, k4);  // 63.7 * 0.33 * 0.337298 + 5
    const Sweep a(kHandCurve, kHandDemand, hand(1));
    EXPECT_NEAR(a[5].K, 0.8838, k4);
}

TEST(CapacitySweep, AFailingRowKeepsWhatItReached) {
    // m = 0 takes the slope from row 1, where d is 0: 0 / 0 before anything of the row.
    CapacitySweep sweep(hand(1, 0));
    SweepRow row;
    row.A = 7;
    try {
        sweep.row(kHandCurve[0], [] { return 1.0; }, row);
        FAIL();
    } catch (const text::RuntimeError& e) {
        EXPECT_EQ(e.number(), text::kOverflow);
    }
    EXPECT_TRUE(std::isnan(row.A));
    EXPECT_FALSE(row.tested);
    // A demand whose reduced displacement overflows fails after the damping, before the test.
    CapacitySweep late(hand());
    for (int i = 0; i < 3; ++i) late.row(kHandCurve[static_cast<std::size_t>(i)], [] { return 1.0; }, row);
    EXPECT_THROW(late.row(kHandCurve[3], [] { return 1e308; }, row), text::RuntimeError);
    EXPECT_NEAR(row.Lambda, 0.3373, k4);
    EXPECT_FALSE(row.tested);
    EXPECT_TRUE(std::isnan(row.final));
}

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
