// The comparison's whole calculation; its single steps are worked in
// tests/golden/tables/spectra.txt, and a target under the average everywhere keeping the factor 1
// is the golden case spectra_design_file_tiny.
#include "compute/spectra/comparison.h"

#include <gtest/gtest.h>



namespace tv::compute {
namespace {

using text::DoubleArray;

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

}  // namespace
}  // namespace tv::compute
