// The sweep table Fg3 of the capacity wizard, on a hand-worked curve.
#include "windows/capacity/sweep_table.h"

#include <gtest/gtest.h>

#include "compute/capacity/capacity_reader.h"
#include "text/runtime_error.h"
#include "windows/capacity/step_table.h"

namespace tv::windows {
namespace {

using namespace fg3;

// The step table as the reader leaves it, from nine-column lines.
TextTable capacity_table(const std::vector<std::string>& data) {
    std::vector<std::string> lines{" Step Teff Betaeff Sd_C Sa_C Sd_d Sa_d ALPHA Pf_fi"};
    lines.insert(lines.end(), data.begin(), data.end());
    compute::CapacityTable t = compute::parse_capacity_lines(lines);
    EXPECT_EQ(t.rows.size(), data.size());
    TextTable Fg(1, 9);
    write_capacity_headings(Fg);
    write_capacity_rows(Fg, t);
    return Fg;
}

// The demand table: Sa at each capacity row in column 1, the period grid in columns 2 and 3.
TextTable demand_table(const std::vector<double>& saAtRow, int rows = 8) {
    TextTable FG2(rows, 4);
    for (std::size_t i = 0; i < saAtRow.size(); ++i)
        FG2.set_text(static_cast<long>(i) + 1, 1, std::to_string(saAtRow[i]));
    const double T[] = {0.2, 0.4, 0.6, 0.8, 1.0, 1.2, 1.4};
    const double Sa[] = {1.0, 1.0, 0.9, 0.7, 0.5, 0.4, 0.3};
    for (long j = 1; j < rows && j <= 7; ++j) {
        FG2.set_text(j, 2, std::to_string(T[j - 1]));
        FG2.set_text(j, 3, std::to_string(Sa[j - 1]));
    }
    return FG2;
}

// A hand-made curve: (T, d, a) = (0.3, 0, 0), (0.4, 1, 0.4), (0.5, 2, 0.8), (0.6, 4, 1.0),
// (0.8, 6, 1.1), PFPhi 1.2, and a sixth row that the sweep leaves out.
TextTable hand_curve() {
    return capacity_table({" 1 0.3 5 0 0 0 0 0 1.2", " 2 0.4 5 1 0.4 0 0 0 1.2", " 3 0.5 5 2 0.8 0 0 0 1.2",
                           " 4 0.6 5 4 1.0 0 0 0 1.2", " 5 0.8 5 6 1.1 0 0 0 1.2", " 6 1.0 5 8 1.15 0 0 0 1.2"});
}

SweepSettings hand_settings(int kind = 1) {
    SweepSettings s;
    s.T1 = "1000";
    s.T2 = "0.5";
    s.T3 = "0";
    s.T4 = "2";
    s.kind = kind;
    return s;
}

struct Sweep {
    TextTable Fg3{1, kCount};
    SweepResults results;
    Sweep(const TextTable& Fg, const TextTable& FG2, const SweepSettings& s) { calculate(Fg, FG2, s, Fg3, results); }
    const std::string& at(long r, long c) const { return Fg3.text(r, c); }
};

int error_of(auto&& f) {
    try {
        f();
    } catch (const text::RuntimeError& e) {
        return e.number();
    }
    return 0;
}

TEST(CapacitySweep, HandCurveRowByRow) {
    Sweep s(hand_curve(), demand_table({1.0, 0.9, 0.85, 0.8, 0.3}), hand_settings());
    EXPECT_EQ(s.Fg3.rows(), 7);
    EXPECT_EQ(s.results.slopeK0, 0.4);  // row 3, i - 1 = m = 2: 0.8 / 2

    // Row 1 reads 0 and 0: no energy, no damping; the boxes of B0 and Lambda keep "0".
    EXPECT_EQ(s.at(1, kStep), "1");
    EXPECT_EQ(s.at(1, kT), "0.3000");
    EXPECT_EQ(s.at(1, kB0), "0");
    EXPECT_EQ(s.at(1, kLambda), "0");
    EXPECT_EQ(s.at(1, kSRA), "0.0000");
    EXPECT_EQ(s.at(1, kSaReduce), "0.0000");

    // Row 2: no slope yet, so B0 stays 0 and Beff = 5: SRA = (3.21 - 0.68 ln 5) / 2.12,
    // SRV = (2.31 - 0.41 ln 5) / 1.65.
    EXPECT_EQ(s.at(2, kB0), "0.0000");
    EXPECT_EQ(s.at(2, kBeff), "5.0000");
    EXPECT_EQ(s.at(2, kK), "1.0000");
    EXPECT_EQ(s.at(2, kSRA), "0.9979");
    EXPECT_EQ(s.at(2, kSRV), "1.0001");
    EXPECT_EQ(s.at(2, kA), "0.2000");

    // Row 4: A = 0.2 + 0.6 + 1.8 = 2.6; A1 = (4 - (1.6 - 1) / 0.4) * 1 / 2 = 1.25;
    // ED = 4 (2.6 - 1.25) = 5.4; Es0 = 2; B0 = 100 / 12.5664 * 2.7 = 21.4859;
    // Lambda = 0.3373; type A above 16.25: K = 1.13 - 0.51 Lambda = 0.9580;
    // Beff = 63.7 K Lambda + 5 = 25.5830; dy = (2.6 - 2) / 0.3 = 2, ay = 0.8.
    EXPECT_EQ(s.at(4, kA), "2.6000");
    EXPECT_EQ(s.at(4, kM), "0.4000");
    EXPECT_EQ(s.at(4, kA1), "1.2500");
    EXPECT_EQ(s.at(4, kED), "5.4");
    EXPECT_EQ(s.at(4, kEs0), "2.0000");
    EXPECT_EQ(s.at(4, kB0), "21.4859");
    EXPECT_EQ(s.at(4, kLambda), "0.3373");
    EXPECT_EQ(s.at(4, kK), "0.9580");
    EXPECT_EQ(s.at(4, kBeff), "25.5830");
    EXPECT_EQ(s.at(4, kSRA), "0.4743");
    EXPECT_EQ(s.at(4, kSRV), "0.5944");
    EXPECT_EQ(s.at(4, kDy), "2.0000");
    EXPECT_EQ(s.at(4, kAy), "0.8000");
    // T 0.6 >= T0: SaRed = SRV * 0.8 = 0.4755; SdRed = 1000 * 0.4755 * (0.6 / 2 pi)^2 = 4.3364.
    EXPECT_EQ(s.at(4, kSa), "0.8000");
    EXPECT_EQ(s.at(4, kSaReduce), "0.4755");
    EXPECT_EQ(s.at(4, kSdReduce), "4.3364");
    EXPECT_EQ(s.at(4, kFinal), "0.3364");
    EXPECT_EQ(s.at(4, kPFPhi), "1.2000");

    // Row 5: ED = 4 (4.7 - 1.5125) = 12.75 in the general format; SdRed 2.6139 < 6.
    EXPECT_EQ(s.at(5, kED), "12.75");
    EXPECT_EQ(s.at(5, kB0), "30.7458");
    EXPECT_EQ(s.at(5, kFinal), "-3.3861");

    // The sixth data row, the table's last, is left out.
    EXPECT_EQ(s.at(6, kStep), "");
    EXPECT_EQ(s.at(6, kSdpi), "");
}

TEST(CapacitySweep, HandCurveCrossing) {
    Sweep s(hand_curve(), demand_table({1.0, 0.9, 0.85, 0.8, 0.3}), hand_settings());
    // final 0.3364 at row 4, -3.3861 at row 5: theta = 0.3364 / 3.7225 = 0.0904.
    // d* = 4 + 2 theta, a* = 1 + 0.1 theta, target* = 1.2 d*; SRA*, SRV*, Beff* between
    // rows 4 and 5 (SRA 0.4743 -> 0.4008, SRV 0.5944 -> 0.5375, Beff 25.583 -> 32.174).
    EXPECT_EQ(s.results.Re1, "5.0169");
    EXPECT_EQ(s.results.Re2, "0.4676");
    EXPECT_EQ(s.results.Re3, "0.5893");
    EXPECT_EQ(s.results.Re4, "26.1787");
    EXPECT_EQ(s.results.lastCrossing, 5);

    EXPECT_EQ(s.at(1, kBilinearD), "0");
    EXPECT_EQ(s.at(1, kBilinearA), "0");
    EXPECT_EQ(s.at(2, kBilinearD), "2.0000");  // dy, ay of row 4
    EXPECT_EQ(s.at(2, kBilinearA), "0.8000");
    EXPECT_EQ(s.at(3, kBilinearD), "4.1808");
    EXPECT_EQ(s.at(3, kBilinearA), "1.0090");
    EXPECT_EQ(s.at(4, kBilinearD), "");

    EXPECT_EQ(s.at(3, kTarget), "");
    EXPECT_EQ(s.at(4, kTarget), "4.8000");
    EXPECT_EQ(s.at(5, kTarget), "7.2000");

    for (long r = 1; r <= 3; ++r) EXPECT_EQ(s.Fg3.cell_color(r, kStep), kBlue) << r;
    EXPECT_EQ(s.Fg3.cell_color(4, kStep), kRed);
    EXPECT_EQ(s.Fg3.cell_color(5, kStep), kRed);
    EXPECT_EQ(s.Fg3.cell_colors().size(), 5u);
}

TEST(CapacitySweep, DemandPassWithTheCrossingsFactors) {
    Sweep s(hand_curve(), demand_table({1.0, 0.9, 0.85, 0.8, 0.3}), hand_settings());
    // T 0.2 below T0: SRA* 0.46764 * 1.0; Sd = 1000 * 1.0 * (0.2 / 2 pi)^2.
    EXPECT_EQ(s.at(1, kTSec), "0.2000");
    EXPECT_EQ(s.at(1, kSaDemand), "1.0000");
    EXPECT_EQ(s.at(1, kSdDemand), "1.0132");
    EXPECT_EQ(s.at(1, kSaReDemand), "0.4676");
    EXPECT_EQ(s.at(1, kSdReDemand), "0.4738");
    // T 0.6 from T0 on: SRV* 0.58928 * 0.9.
    EXPECT_EQ(s.at(3, kSaReDemand), "0.5304");
    EXPECT_EQ(s.at(3, kSdReDemand), "4.8362");
    EXPECT_EQ(s.at(6, kTSec), "1.2000");
    EXPECT_EQ(s.at(6, kSdDemand), "14.5903");
    EXPECT_EQ(s.at(6, kSdReDemand), "8.5978");
    EXPECT_EQ(s.at(0, kTSec), "T(Sec)");
}

TEST(CapacitySweep, DemandPassStopsAfterTheFirstEmptyPeriod) {
    // Seven periods in a table of ten rows: row 8 is still written, from empty texts.
    Sweep s(hand_curve(), demand_table({1.0, 0.9, 0.85, 0.8, 0.3}, 10), hand_settings());
    EXPECT_EQ(s.Fg3.rows(), 9);
    EXPECT_EQ(s.at(7, kTSec), "1.4000");
    EXPECT_EQ(s.at(8, kTSec), "0.0000");
    EXPECT_EQ(s.at(8, kSaDemand), "0.0000");
    EXPECT_EQ(s.at(8, kSdDemand), "0");
    EXPECT_EQ(s.at(8, kSaReDemand), "0");
    EXPECT_EQ(s.at(8, kSdReDemand), "0");
    EXPECT_EQ(s.at(8, kStep), "");
}

TEST(CapacitySweep, NoCrossingLeavesResultsEmptyAndReducedDemandZero) {
    Sweep s(hand_curve(), demand_table({0, 0, 0, 0, 0}), hand_settings());
    EXPECT_EQ(s.results.Re1, "");
    EXPECT_EQ(s.results.Re4, "");
    EXPECT_EQ(s.results.lastCrossing, 0);
    EXPECT_EQ(s.at(4, kFinal), "-4.0000");
    EXPECT_EQ(s.at(1, kBilinearD), "");
    for (long j = 1; j <= 6; ++j) {
        EXPECT_EQ(s.at(j, kSaReDemand), "0");
        EXPECT_EQ(s.at(j, kSdReDemand), "0");
    }
    EXPECT_EQ(s.Fg3.cell_color(5, kStep), kBlue);
}

// With m beyond the curve the slope stays 0: B0 stays 0, every row has Beff 5, SRV 1.00008,
// and with T 0.6 everywhere SdRed = 1000 * 1.00008 * Sa * 0.0091189.
TextTable flat_damping_curve() {
    return capacity_table({" 1 0.6 5 1 0.5 0 0 0 1.5", " 2 0.6 5 2 0.8 0 0 0 1.5", " 3 0.6 5 3 1.0 0 0 0 1.5",
                           " 4 0.6 5 4 1.1 0 0 0 1.5", " 5 0.6 5 5 1.15 0 0 0 1.5", " 6 0.6 5 6 1.2 0 0 0 1.5"});
}

TEST(CapacitySweep, TwoCrossingsTheLastOneStands) {
    SweepSettings set = hand_settings();
    set.T4 = "100";
    // final: 0.8239, -1.0880, 1.5598, -1.2641, -3.1761.
    Sweep s(flat_damping_curve(), demand_table({0.2, 0.1, 0.5, 0.3, 0.2}), set);
    EXPECT_EQ(s.results.lastCrossing, 4);
    // Second crossing between d 3 and 4: theta = 1.5598 / 2.8239; target* = 1.5 d*.
    EXPECT_EQ(s.results.Re1, "5.3285");
    EXPECT_EQ(s.results.Re2, "0.9979");
    EXPECT_EQ(s.results.Re3, "1.0001");
    EXPECT_EQ(s.results.Re4, "5.0000");
    EXPECT_EQ(s.at(3, kBilinearD), "3.5524");
    EXPECT_EQ(s.at(3, kBilinearA), "1.0552");
    EXPECT_EQ(s.at(2, kBilinearD), "-0.1000");  // dy of row 3 with a zero slope
    EXPECT_EQ(s.at(2, kBilinearA), "0.0000");
    // The first crossing keeps its marks and its targets.
    EXPECT_EQ(s.at(1, kTarget), "1.5000");
    EXPECT_EQ(s.at(2, kTarget), "3.0000");
    EXPECT_EQ(s.at(3, kTarget), "4.5000");
    EXPECT_EQ(s.at(4, kTarget), "6.0000");
    for (long r = 1; r <= 4; ++r) EXPECT_EQ(s.Fg3.cell_color(r, kStep), kRed) << r;
    EXPECT_EQ(s.Fg3.cell_color(5, kStep), kBlue);
}

TEST(CapacitySweep, PlateauCapOnceTwoRowsAgree) {
    SweepSettings set = hand_settings();
    set.T4 = "100";
    // Rows 1 and 2 give the same reduced demand: it becomes the cap for every later row.
    Sweep s(flat_damping_curve(), demand_table({0.2, 0.2, 0.5, 0.1, 0.6}), set);
    EXPECT_EQ(s.at(2, kSaReduce), "0.2000");
    EXPECT_EQ(s.at(3, kSa), "0.5000");
    EXPECT_EQ(s.at(3, kSaReduce), "0.2000");
    EXPECT_EQ(s.at(4, kSaReduce), "0.1000");
    EXPECT_EQ(s.at(5, kSaReduce), "0.2000");
}

TEST(CapacitySweep, SkipOffsetsTheCurveButNotTheDemand) {
    SweepSettings set = hand_settings();
    set.T3 = "1";
    Sweep s(hand_curve(), demand_table({0.11, 0.22, 0.33, 0.44, 0.55}), set);
    // Row 1 is the curve's second row, but its demand is FG2 row 1.
    EXPECT_EQ(s.at(1, kStep), "2");
    EXPECT_EQ(s.at(1, kT), "0.4000");
    EXPECT_EQ(s.at(1, kSdpi), "1.0000");
    EXPECT_EQ(s.at(1, kSa), "0.1100");
    EXPECT_EQ(s.at(4, kStep), "5");
    EXPECT_EQ(s.at(4, kSa), "0.4400");
    EXPECT_EQ(s.at(5, kStep), "");
    // The slope now comes from the curve's fourth row: 1.0 / 4.
    EXPECT_EQ(s.results.slopeK0, 0.25);
}

TEST(CapacitySweep, StructureTypesBAndC) {
    Sweep b(hand_curve(), demand_table({1.0, 0.9, 0.85, 0.8, 0.3}), hand_settings(2));
    EXPECT_EQ(b.at(4, kK), "0.6700");  // B0 21.49 up to 25
    EXPECT_EQ(b.at(5, kK), "0.6297");  // 0.845 - 0.446 * 30.7458 / 63.7
    Sweep c(hand_curve(), demand_table({1.0, 0.9, 0.85, 0.8, 0.3}), hand_settings(3));
    EXPECT_EQ(c.at(2, kK), "0.3300");
    EXPECT_EQ(c.at(2, kBeff), "5.0000");
    EXPECT_EQ(c.at(4, kK), "0.3300");
    EXPECT_EQ(c.at(4, kBeff), "12.0903");  // 63.7 * 0.33 * 0.337298 + 5
    Sweep a(hand_curve(), demand_table({1.0, 0.9, 0.85, 0.8, 0.3}), hand_settings(1));
    EXPECT_EQ(a.at(5, kK), "0.8838");
}

TEST(CapacitySweep, SlopeFromARowWithZeroDisplacementFails) {
    SweepSettings set = hand_settings();
    set.T4 = "0";
    TextTable Fg3(1, kCount);
    SweepResults r;
    r.Re1 = "old";
    EXPECT_EQ(error_of([&] { calculate(hand_curve(), demand_table({1, 1, 1, 1, 1}), set, Fg3, r); }),
              text::kOverflow);  // 0 / 0
    EXPECT_EQ(r.Re1, "");
    EXPECT_EQ(Fg3.text(1, kSdpi), "0.0000");
    EXPECT_EQ(Fg3.text(1, kA), "");
}

TEST(CapacitySweep, DemandTableShorterThanTheCurveFails) {
    TextTable Fg3(1, kCount);
    SweepResults r;
    EXPECT_EQ(error_of([&] { calculate(hand_curve(), demand_table({1, 1, 1}, 4), hand_settings(), Fg3, r); }),
              text::kSubscript);
    EXPECT_EQ(Fg3.rows(), 3);
}

TEST(CapacitySweep, HeaderHidesThreeColumnsAndAnotherRunStartsClean) {
    Sweep s(hand_curve(), demand_table({1.0, 0.9, 0.85, 0.8, 0.3}), hand_settings());
    EXPECT_EQ(s.at(0, 0), "Sort");
    EXPECT_EQ(s.at(0, kSaReDemand), "Sa(Re)(demand)");
    EXPECT_EQ(s.at(0, kBilinearA), "bilinear");
    EXPECT_TRUE(s.Fg3.col_hidden(kSort));
    EXPECT_TRUE(s.Fg3.col_hidden(kX));
    EXPECT_TRUE(s.Fg3.col_hidden(kSaTarsim));
    EXPECT_FALSE(s.Fg3.col_hidden(kTarget));
    // Running again without a crossing clears the marks, targets and results.
    calculate(hand_curve(), demand_table({0, 0, 0, 0, 0}), hand_settings(), s.Fg3, s.results);
    EXPECT_EQ(s.at(4, kTarget), "");
    EXPECT_EQ(s.Fg3.cell_color(4, kStep), kBlue);
    EXPECT_EQ(s.results.Re1, "");
}

}  // namespace
}  // namespace tv::windows
