#include "windows/capacity/capacity_results.h"

#include <gtest/gtest.h>

#include "windows/capacity/sweep_table.h"

namespace tv::windows {
namespace {

using namespace fg3;

// A swept table by hand: three curve rows, a crossing, demand in four rows.
TextTable swept_table() {
    TextTable Fg3(6, kCount);
    header(Fg3);
    const char* d[] = {"1.0000", "2.0000", "3.0000"};
    const char* a[] = {"0.5000", "0.8000", "0.9000"};
    for (long i = 1; i <= 3; ++i) {
        Fg3.set_text(i, kSdpi, d[i - 1]);
        Fg3.set_text(i, kSapi, a[i - 1]);
        Fg3.set_text(i, kSdReduce, "2.5000");
        Fg3.set_text(i, kSaReduce, "0.7000");
    }
    Fg3.set_text(1, kBilinearD, "0");
    Fg3.set_text(1, kBilinearA, "0");
    Fg3.set_text(2, kBilinearD, "1.5000");
    Fg3.set_text(2, kBilinearA, "0.7500");
    Fg3.set_text(3, kBilinearD, "2.4000");
    Fg3.set_text(3, kBilinearA, "0.8400");
    for (long j = 1; j <= 4; ++j) {
        Fg3.set_text(j, kSdDemand, j == 1 ? "0" : "1.5000");
        Fg3.set_text(j, kSaDemand, j == 2 ? "1.2500" : "1.0000");
        Fg3.set_text(j, kSdReDemand, "0");
        Fg3.set_text(j, kSaReDemand, "0");
    }
    Fg3.set_text(2, kTarget, "3.0000");
    return Fg3;
}

TEST(Fillarray, FiveSeriesAndTheLargestValues) {
    TextTable Fg3 = swept_table();
    // A bilinear text below the curve's rows is not read.
    Fg3.set_text(4, kBilinearD, "9.0000");
    Fg3.set_text(4, kBilinearA, "9.0000");
    CapacityDiagram g = fillarray(Fg3);
    const auto& s = g.series;
    EXPECT_EQ(s[CapacityDiagram::kDemand].x.ubound(), 4);
    EXPECT_EQ(s[CapacityDiagram::kDemand].y(2), 1.25);
    EXPECT_EQ(s[CapacityDiagram::kReducedDemand].y.ubound(), 4);
    EXPECT_EQ(s[CapacityDiagram::kCapacity].x.ubound(), 3);
    EXPECT_EQ(s[CapacityDiagram::kCapacity].x(3), 3.0);
    EXPECT_EQ(s[CapacityDiagram::kBilinear].x.ubound(), 3);
    EXPECT_EQ(s[CapacityDiagram::kBilinear].y(3), 0.84);
    EXPECT_EQ(s[CapacityDiagram::kSweep].x(1), 2.5);
    EXPECT_EQ(s[CapacityDiagram::kSweep].y(3), 0.7);
    // Index 0 is never written.
    EXPECT_EQ(s[CapacityDiagram::kCapacity].y(0), 0.0);
    EXPECT_EQ(g.maxAbscissa, 3.0);
    EXPECT_EQ(g.maxOrdinate, 1.25);
}

TEST(Fillarray, NoCrossingLeavesTheBilinearSeriesEmpty) {
    TextTable Fg3 = swept_table();
    for (long r = 1; r <= 3; ++r) {
        Fg3.set_text(r, kBilinearD, "");
        Fg3.set_text(r, kBilinearA, "");
    }
    CapacityDiagram g = fillarray(Fg3);
    EXPECT_FALSE(g.series[CapacityDiagram::kBilinear].x.allocated());
    EXPECT_FALSE(g.series[CapacityDiagram::kBilinear].y.allocated());
    EXPECT_TRUE(g.series[CapacityDiagram::kReducedDemand].x.allocated());
}

TEST(Fillarray, AGapLeavesAZeroBehind) {
    TextTable Fg3 = swept_table();
    Fg3.set_text(3, kSdDemand, "");
    CapacityDiagram g = fillarray(Fg3);
    EXPECT_EQ(g.series[CapacityDiagram::kDemand].x.ubound(), 4);
    EXPECT_EQ(g.series[CapacityDiagram::kDemand].x(3), 0.0);
}

}  // namespace
}  // namespace tv::windows
