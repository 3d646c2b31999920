// The period grid: the count of ordinates, the loop by repeated addition with its two end
// rules, and the periods and indices by product and quotient.
#include "compute/spectra/period_grid.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "text/runtime_error.h"
#include "support/errors.h"

namespace tv::compute {
namespace {

std::vector<std::pair<long, double>> passes(const PeriodGrid& grid) {
    std::vector<std::pair<long, double>> out;
    grid.each([&](long k, double T) { out.emplace_back(k, T); });
    return out;
}

using tv::test::error_of;

TEST(PeriodGrid, CountIsTheRoundedQuotient) {
    EXPECT_EQ(period_count(4, 0.01), 400);
    EXPECT_EQ(period_count(0.25, 0.1), 2);  // 2.5 to the even integer
    EXPECT_EQ(period_count(0.35, 0.1), 3);  // 3.4999999999999996 is below the half
    EXPECT_EQ(error_of([] { period_count(4, 0); }), text::kDivisionByZero);
    EXPECT_EQ(error_of([] { period_count(0, 0); }), text::kOverflow);
}

TEST(PeriodGrid, TheEndItselfIsAPass) {
    using P = std::vector<std::pair<long, double>>;
    EXPECT_EQ(passes({0.25, 1, 0.25}), (P{{1, 0.25}, {2, 0.5}, {3, 0.75}, {4, 1}}));
    EXPECT_EQ(passes({0.5, 0.5, 1}), (P{{1, 0.5}}));
    // A negative step counts down to the end, inclusive.
    EXPECT_EQ(passes({1, 0.5, -0.25}), (P{{1, 1}, {2, 0.75}, {3, 0.5}}));
    // The upward loop asks T <= tEnd whatever the step: from above the end it never runs.
    EXPECT_TRUE(passes({2, 1, -0.25, 0, true}).empty());
    EXPECT_EQ(passes({2, 1, -0.25}).size(), 5u);
}

TEST(PeriodGrid, TheSumAccumulatesWhereTheProductDoesNot) {
    // 0.02 added 198 times overshoots 3.98 and 4 is never reached: 199 passes for 200 indices.
    const auto p = passes({0.02, 4, 0.02});
    ASSERT_EQ(p.size(), 199u);
    EXPECT_EQ(p.back().second, 3.980000000000003);
    EXPECT_EQ(period_of_index(199, 0.02), 3.98);
    // From 0 one pass more than the indices.
    EXPECT_EQ(passes({0, 4, 0.01}).size(), 401u);
    EXPECT_EQ(index_of_period(0.25, 0.1), 2);  // halves to even
    EXPECT_EQ(index_of_period(0.004, 0.01), 0);
    EXPECT_EQ(error_of([] { index_of_period(0.1, 0); }), text::kDivisionByZero);
}

}  // namespace
}  // namespace tv::compute
