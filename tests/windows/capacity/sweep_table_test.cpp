// The sweep table Fg3 of the capacity wizard on a hand-worked curve: what the texts, colours
// and results of the sweep look like (the numbers are the sweep's own tests).
#include "windows/capacity/sweep_table.h"

#include <gtest/gtest.h>

#include "capacity_fixture.h"
#include "compute/capacity/capacity_reader.h"
#include "compute/files/text_file.h"
#include "text/runtime_error.h"
#include "windows/capacity/step_table.h"

namespace tv::windows {
namespace {

using namespace fg3;
using test::error_of;

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

using test::demand_table;

// The sweep's hand-made curve, and a sixth row that the sweep leaves out.
TextTable hand_curve() {
    std::vector<std::string> lines = compute::split_lines(test::kHandCurve);
    return capacity_table({lines.begin() + 2, lines.end()});
}

SweepBoxes hand_settings(int kind = 1) {
    SweepBoxes s;
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
    Sweep(const TextTable& Fg, const TextTable& FG2, const SweepBoxes& s) { calculate(Fg, FG2, s, Fg3, results); }
    const std::string& at(long r, long c) const { return Fg3.text(r, c); }
};

TEST(SweepTable, AnEarlierCrossingKeepsItsMarksAndTargets) {
    // With m beyond the curve the slope stays 0; final changes sign at rows 2 and 4.
    SweepBoxes set = hand_settings();
    set.T4 = "100";
    Sweep s(capacity_table({" 1 0.6 5 1 0.5 0 0 0 1.5", " 2 0.6 5 2 0.8 0 0 0 1.5", " 3 0.6 5 3 1.0 0 0 0 1.5",
                            " 4 0.6 5 4 1.1 0 0 0 1.5", " 5 0.6 5 5 1.15 0 0 0 1.5", " 6 0.6 5 6 1.2 0 0 0 1.5"}),
            demand_table({0.2, 0.1, 0.5, 0.3, 0.2}), set);
    EXPECT_EQ(s.results.lastCrossing, 4);
    EXPECT_EQ(s.results.Re1, "5.3285");
    EXPECT_EQ(s.at(1, kTarget), "1.5000");
    EXPECT_EQ(s.at(2, kTarget), "3.0000");
    EXPECT_EQ(s.at(3, kTarget), "4.5000");
    EXPECT_EQ(s.at(4, kTarget), "6.0000");
    for (long r = 1; r <= 4; ++r) EXPECT_EQ(s.Fg3.cell_color(r, kStep), kRed) << r;
    EXPECT_EQ(s.Fg3.cell_color(5, kStep), kBlue);
}

TEST(SweepTable, AFailureKeepsTheCellsWrittenBeforeIt) {
    SweepBoxes set = hand_settings();
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

TEST(SweepTable, ADemandTableShorterThanTheCurveFails) {
    TextTable Fg3(1, kCount);
    SweepResults r;
    EXPECT_EQ(error_of([&] { calculate(hand_curve(), demand_table({1, 1, 1}, 4), hand_settings(), Fg3, r); }),
              text::kSubscript);
    EXPECT_EQ(Fg3.rows(), 3);
}

TEST(SweepTable, HeaderHidesThreeColumnsAndAnotherRunStartsClean) {
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

TEST(SweepTable, TheDemandPassWritesZerosAsZeroAndStopsAfterTheFirstEmptyPeriod) {
    // Seven periods in a table of ten rows: row 8 is still written, from empty texts.
    Sweep s(hand_curve(), demand_table({1.0, 0.9, 0.85, 0.8, 0.3}, 10), hand_settings());
    EXPECT_EQ(s.Fg3.rows(), 9);
    EXPECT_EQ(s.at(0, kTSec), "T(Sec)");
    EXPECT_EQ(s.at(1, kTSec), "0.2000");
    EXPECT_EQ(s.at(7, kTSec), "1.4000");
    EXPECT_EQ(s.at(8, kTSec), "0.0000");
    EXPECT_EQ(s.at(8, kSaDemand), "0.0000");
    EXPECT_EQ(s.at(8, kSdDemand), "0");
    EXPECT_EQ(s.at(8, kSaReDemand), "0");
    EXPECT_EQ(s.at(8, kSdReDemand), "0");
    EXPECT_EQ(s.at(8, kStep), "");
    // Without a crossing: no results, no bilinear form, the reduced demand "0".
    Sweep none(hand_curve(), demand_table({0, 0, 0, 0, 0}), hand_settings());
    EXPECT_EQ(none.results.Re1, "");
    EXPECT_EQ(none.results.lastCrossing, 0);
    EXPECT_EQ(none.at(1, kBilinearD), "");
    EXPECT_EQ(none.at(3, kSaReDemand), "0");
    EXPECT_EQ(none.Fg3.cell_color(5, kStep), kBlue);
}

}  // namespace
}  // namespace tv::windows
