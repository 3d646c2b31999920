#include "compute/spectra/comparison.h"

#include <gtest/gtest.h>

#include <cmath>

#include "text/runtime_error.h"
#include "support/errors.h"

namespace tv::compute {
namespace {

using text::DoubleArray;

using tv::test::error_of;

DoubleArray array_of(std::initializer_list<double> values) {  // index 0 = 0, then the values
    DoubleArray a(static_cast<long>(values.size()));
    long i = 1;
    for (double v : values) a(i++) = v;
    return a;
}

TEST(Combination, SrssPeriodByPeriod) {
    const auto x = array_of({3, 0, 0.6}), y = array_of({4, 2, 0.8});
    DoubleArray c;
    combine_record(x, y, 3, CombinationRule::Srss, 0, 0, c);
    EXPECT_EQ(c.ubound(), 3);
    EXPECT_EQ(c(0), 0);
    EXPECT_EQ(c(1), 5);
    EXPECT_EQ(c(2), 2);
    EXPECT_DOUBLE_EQ(c(3), 1);
}

TEST(Combination, LargerComponentByPeakAcceleration) {
    // The spectra do not decide: X has the larger ordinates, Y the larger peak acceleration.
    const auto x = array_of({9, 9}), y = array_of({1, 2});
    DoubleArray c;
    combine_record(x, y, 2, CombinationRule::LargerComponent, 0.3, 0.31, c);
    EXPECT_EQ(c(1), 1);
    EXPECT_EQ(c(2), 2);
    combine_record(x, y, 2, CombinationRule::LargerComponent, 0.31, 0.3, c);
    EXPECT_EQ(c(2), 9);
    // A tie takes Y.
    combine_record(x, y, 2, CombinationRule::LargerComponent, 0.3, 0.3, c);
    EXPECT_EQ(c(1), 1);
}

TEST(Combination, ShortSpectrumFails) {
    const auto x = array_of({1}), y = array_of({1, 2});
    DoubleArray c;
    EXPECT_EQ(error_of([&] { combine_record(x, y, 2, CombinationRule::Srss, 0, 0, c); }), text::kSubscript);
    EXPECT_EQ(c(1), std::sqrt(2.0));  // the first ordinate was written
}

TEST(Average, OverTheLoadedRecords) {
    const auto c1 = array_of({1, 0.3}), c2 = array_of({2, 0.6}), c3 = array_of({3, 0.9});
    DoubleArray avg;
    average_spectrum({&c1}, 2, avg);
    EXPECT_EQ(avg(1), 1);  // one record: the average is the record
    EXPECT_EQ(avg(2), 0.3);
    average_spectrum({&c1, &c2, &c3}, 2, avg);
    EXPECT_EQ(avg(1), 2);
    EXPECT_EQ(avg(2), ((0.3 + 0.6) + 0.9) / 3);  // summed in record order
    EXPECT_EQ(error_of([&] { average_spectrum({}, 2, avg); }), text::kSubscript);
}

TEST(Target, CodeFactorTimesDesignSpectrum) {
    const auto sa = array_of({0.5, 0.65});
    DoubleArray t;
    target_spectrum(sa, 1.17, 2, t);
    EXPECT_EQ(t(1), 1.17 * 0.5);
    EXPECT_EQ(t(2), 1.17 * 0.65);
    EXPECT_EQ(error_of([&] { target_spectrum(sa, 1.17, 3, t); }), text::kSubscript);
}

TEST(BandSearch, WorkedCheck) {
    // Average 0.5 against target 0.6 at the worst period, a smaller shortfall elsewhere.
    DoubleArray avg(400), target(400);
    for (long j = 1; j <= 400; ++j) avg(j) = 0.5, target(j) = 0.55;
    target(150) = 0.6;
    const double M = largest_shortfall_ratio(avg, target, 0.01, 4, 0.01);
    EXPECT_DOUBLE_EQ(M, 1.2);
    EXPECT_EQ(round_factor(M), 1.2);
}

TEST(BandSearch, NeverBelowOneAndStrict) {
    DoubleArray avg(10), target(10);
    for (long j = 1; j <= 10; ++j) avg(j) = 1, target(j) = 0.8;
    EXPECT_EQ(largest_shortfall_ratio(avg, target, 0.01, 0.1, 0.01), 1);
    target(4) = 1;  // equal ordinates leave M alone
    EXPECT_EQ(largest_shortfall_ratio(avg, target, 0.01, 0.1, 0.01), 1);
}

TEST(BandSearch, OnlyTheBandCounts) {
    DoubleArray avg(10), target(10);
    for (long j = 1; j <= 10; ++j) avg(j) = 1, target(j) = 1;
    target(2) = 3;   // period 0.02, outside the band
    target(5) = 1.5;
    target(9) = 2;  // period 0.09, outside the band
    EXPECT_EQ(largest_shortfall_ratio(avg, target, 0.03, 0.08, 0.01), 1.5);
    // Typed with three decimals, the band is rounded to two first: 0.084 -> 0.08, 0.024 -> 0.02,
    // 0.086 -> 0.09.
    EXPECT_EQ(largest_shortfall_ratio(avg, target, 0.03, 0.084, 0.01), 1.5);
    EXPECT_EQ(largest_shortfall_ratio(avg, target, 0.024, 0.08, 0.01), 3);
    EXPECT_EQ(largest_shortfall_ratio(avg, target, 0.03, 0.086, 0.01), 2);
}

TEST(BandSearch, Failures) {
    DoubleArray avg(10), target(10);
    for (long j = 1; j <= 10; ++j) avg(j) = 1, target(j) = 1;
    avg(3) = 0;
    target(3) = 0.2;  // a zero average under a positive target
    EXPECT_EQ(error_of([&] { largest_shortfall_ratio(avg, target, 0.01, 0.1, 0.01); }), text::kDivisionByZero);
    avg(3) = 1;
    EXPECT_EQ(error_of([&] { largest_shortfall_ratio(avg, target, 0.01, 0.2, 0.01); }), text::kSubscript);
    EXPECT_EQ(error_of([&] { largest_shortfall_ratio(avg, target, 0.01, 0.1, 0); }), text::kDivisionByZero);
    // A start below half a step gives index 0, whose ordinates are both 0.
    EXPECT_EQ(largest_shortfall_ratio(avg, target, 0.004, 0.05, 0.01), 1);
}

TEST(ScaleFactor, TwoDecimalsHalvesToEven) {
    EXPECT_EQ(round_factor(1.125), 1.12);
    EXPECT_EQ(round_factor(1.135), 1.14);
    EXPECT_EQ(round_factor(1.004), 1);
    EXPECT_EQ(round_factor(1.2), 1.2);
}

TEST(ScaleRecord, LastSampleIsKept) {
    const auto bx = array_of({1, 2, 3, 4}), by = array_of({5, 6, 7, 8});
    DoubleArray ax = array_of({0, 0, 0, 9}), ay = array_of({0, 0, 0, 9});
    scale_record(bx, by, ax, ay, 2, 4, 1.5);
    EXPECT_EQ(ax(1), 0);
    EXPECT_EQ(ax(2), 3);
    EXPECT_EQ(ay(3), 10.5);
    EXPECT_EQ(ax(4), 9);
    // X and Y go sample by sample: a short Y stops after X of the same sample.
    DoubleArray shortY = array_of({0, 0});
    EXPECT_EQ(error_of([&] { scale_record(bx, by, ax, shortY, 1, 4, 2); }), text::kSubscript);
    EXPECT_EQ(ax(3), 6);
    EXPECT_EQ(shortY(2), 12);
}

// The whole calculation with a stand-in integrator whose spectra are linear in the records.
TEST(ComparisonCalculate, FindsTheFactorAndRecomputesWithIt) {
    const std::int32_t n = 10;
    DoubleArray bx1(3), by1(3), bx2(3), by2(3);
    bx1(1) = 1, by1(1) = 1, bx2(1) = 1, by2(1) = 1;
    DoubleArray ax1(3), ay1(3), ax2(3), ay2(3);
    DoubleArray sx1, sy1, sx2, sy2, c1, c2, c3, avg, target;
    // Shapes: record 1 has 0.4 and 0.6 everywhere, record 2 ones chosen so the average is 0.5
    // at period 5 and larger elsewhere.
    auto integrate = [&] {
        for (DoubleArray* s : {&sx1, &sy1, &sx2, &sy2}) s->redim(n);
        for (long j = 1; j <= n; ++j) {
            sx1(j) = ax1(1) * 0.4, sy1(j) = ay1(1) * 0.6;
            sx2(j) = ax2(1) * (j == 5 ? 0.4 : 0.9), sy2(j) = ay2(1) * 0.1;
        }
    };
    DoubleArray sa(n);
    for (long j = 1; j <= n; ++j) sa(j) = 0.5;
    std::vector<ComparisonRecord> records{{1, 3, bx1, by1, ax1, ay1, sx1, sy1, 0.2, 0.3, c1},
                                          {1, 3, bx2, by2, ax2, ay2, sx2, sy2, 0.5, 0.1, c2}};
    std::vector<double> shown;
    int runs = 0, bands = 0;
    ComparisonHooks hooks;
    hooks.run_integrator = [&] {
        ++runs;
        integrate();
    };
    hooks.sa_scale = [] { return 1.2; };  // target 0.6 everywhere
    hooks.band = [&] {
        ++bands;
        return std::pair{0.01, 0.1};
    };
    hooks.show_factor = [&](double z) { shown.push_back(z); };
    const double z = comparison_calculate(records, sa, n, 0.01, CombinationRule::LargerComponent, avg, target, hooks);
    // Larger component: record 1 takes Y (0.6), record 2 takes X (0.4 at period 5, else 0.9).
    // Average 0.5 at period 5 against 0.6: M = 1.2.
    EXPECT_EQ(z, 1.2);
    EXPECT_EQ(runs, 2);
    EXPECT_EQ(bands, 1);
    EXPECT_EQ(shown, (std::vector<double>{1.2, 1.2}));
    // The second run holds the records times z; the sample at lastLine is not rewritten.
    EXPECT_EQ(ax1(1), 1.2);
    EXPECT_EQ(ax1(3), 0);
    EXPECT_EQ(c3.allocated(), false);
    EXPECT_NEAR(avg(5), 0.6, 1e-15);
    EXPECT_EQ(target(5), 1.2 * 0.5);
    EXPECT_GT(avg(4), target(4));
}

TEST(ComparisonCalculate, AboveTheTargetKeepsOne) {
    DoubleArray base(3), accelX(3), accelY(3), sx, sy, c, avg, target, sa(4);
    base(1) = 1;
    for (long j = 1; j <= 4; ++j) sa(j) = 0.1;
    std::vector<ComparisonRecord> records{{1, 3, base, base, accelX, accelY, sx, sy, 1, 1, c}};
    ComparisonHooks hooks;
    hooks.run_integrator = [&] {
        sx.redim(4), sy.redim(4);
        for (long j = 1; j <= 4; ++j) sx(j) = accelX(1), sy(j) = accelY(1);
    };
    hooks.sa_scale = [] { return 1.17; };
    hooks.band = [] { return std::pair{0.01, 0.04}; };
    EXPECT_EQ(comparison_calculate(records, sa, 4, 0.01, CombinationRule::Srss, avg, target, hooks), 1);
    EXPECT_DOUBLE_EQ(avg(2), std::sqrt(2.0));
}

}  // namespace
}  // namespace tv::compute
