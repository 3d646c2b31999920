// The tables of the capacity wizard: the sweep table Fg3 on a hand-worked curve (what the texts,
// colours and results of the sweep look like; the numbers are the sweep's own tests), the step
// table Fg, the demand table FG2, the diagram's series from Fg3, and the copy between a window's
// grid and the computations' table, both ways.
#include "windows/capacity/sweep_table.h"

#include <gtest/gtest.h>

#include <sstream>

#include "capacity_fixture.h"
#include "compute/capacity/capacity_reader.h"
#include "compute/files/text_file.h"
#include "forms/app.h"
#include "support/tables.h"
#include "text/runtime_error.h"
#include "windows/capacity/capacity_results.h"
#include "windows/capacity/demand_table.h"
#include "windows/capacity/grid_table.h"
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

// g 1000, T0 0.5; no rows skipped, m 2 and kind A as the window starts.
SweepBoxes hand_settings() {
    SweepBoxes s;
    s.T1 = "1000";
    s.T2 = "0.5";
    return s;
}

struct Sweep {
    TextTable Fg3{1, kCount};
    SweepResults results;
    Sweep(const TextTable& Fg, const TextTable& FG2, const SweepBoxes& s) { calculate(Fg, FG2, s, Fg3, results); }
    /// A line a row: the Step cell's colour, then the texts, hidden columns in brackets; against
    /// tests/golden/windows/sweep_<name>.txt.
    void expect_table(const std::string& name) const {
        std::string out;
        for (long r = 0; r < Fg3.rows(); ++r) {
            out += std::to_string(Fg3.cell_color(r, kStep)) + " |";
            for (long c = 0; c < Fg3.cols(); ++c)
                out += Fg3.col_hidden(c) ? " (" + Fg3.text(r, c) + ") |" : " " + Fg3.text(r, c) + " |";
            out += "\n";
        }
        test::expect_state(out, "sweep_" + name);
    }
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
    // Targets 1.5, 3, 4.5 and 6 in rows 1 to 4, their steps red; row 5 blue.
    s.expect_table("earlier_crossing");
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
    // A demand table shorter than the curve.
    TextTable cut(1, kCount);
    EXPECT_EQ(error_of([&] { calculate(hand_curve(), demand_table({1, 1, 1}, 4), hand_settings(), cut, r); }),
              text::kSubscript);
    EXPECT_EQ(cut.rows(), 3);
}

TEST(SweepTable, HeaderHidesThreeColumnsAndAnotherRunStartsClean) {
    Sweep s(hand_curve(), demand_table({1.0, 0.9, 0.85, 0.8, 0.3}), hand_settings());
    // The headings from "Sort" to "bilinear"; Sort, X and Sa(tarsim) hidden, Target shown.
    s.expect_table("hand");
    // Running again without a crossing clears the marks, targets and results, as a first run
    // without one leaves them: no bilinear form, the reduced demand "0", the steps blue.
    calculate(hand_curve(), demand_table({0, 0, 0, 0, 0}), hand_settings(), s.Fg3, s.results);
    s.expect_table("without_crossing");
    EXPECT_EQ(s.results.Re1, "");
    EXPECT_EQ(s.results.lastCrossing, 0);
}

TEST(SweepTable, TheDemandPassWritesZerosAsZeroAndStopsAfterTheFirstEmptyPeriod) {
    // Seven periods in a table of ten rows: row 8 is still written, from empty texts.
    // Periods 0.2 to 1.4 in rows 1 to 7; row 8 "0.0000", its Sa "0.0000", Sd and the reduced demand
    // "0", no step.
    Sweep s(hand_curve(), demand_table({1.0, 0.9, 0.85, 0.8, 0.3}, 10), hand_settings());
    s.expect_table("ten_demand_rows");
}

TEST(StepTable, LayoutOfTheRowsAsCut) {
    TextTable Fg = capacity_table({" 0 0.40 5 0 0 0 0 0 1.3", " 1 0.42 5 10.5 0.25 11 0.24 0.9 1.3"});
    // The headings and the cells as cut (leading blank kept) are in the capacity_* window states.
    EXPECT_EQ(Fg.rows(), 3);
    EXPECT_EQ(Fg.col_width(0), 500);
    EXPECT_EQ(Fg.col_alignment(8), kLeftCentre);

    // A later file without rows leaves the table as it stood.
    write_capacity_rows(Fg, compute::parse_capacity_lines({"nothing"}));
    EXPECT_EQ(Fg.rows(), 3);

    // A table of fewer columns grows to nine, keeping its cells.
    TextTable narrow(2, 3);
    narrow.set_text(1, 2, "kept");
    write_capacity_headings(narrow);
    EXPECT_EQ(narrow.row_texts(1), (std::vector<std::string>{"", "", "kept", "", "", "", "", "", ""}));
}

TextTable capacity_teff(const std::vector<std::string>& teff) {
    TextTable Fg(static_cast<int>(teff.size()) + 1, 9);
    for (std::size_t i = 0; i < teff.size(); ++i) {
        Fg.set_text(static_cast<long>(i) + 1, 0, std::to_string(i + 1));
        Fg.set_text(static_cast<long>(i) + 1, 1, teff[i]);
    }
    return Fg;
}

TEST(CalculareSa, ZeroStepAndACurveLongerThanTheTable) {
    // A spectrum on 0.02 .. 0.1 s as the wizard's Show Diagram stores it.
    text::DoubleArray aux(5), sa(5), saAtStep;
    for (long j = 1; j <= 5; ++j) {
        aux(j) = 0.02 * static_cast<double>(j);
        sa(j) = 0.3 + 0.2 * static_cast<double>(j);
    }
    TextTable FG2(3, 4);
    FG2.set_text(1, 1, "x");
    EXPECT_EQ(calculare_sa(FG2, saAtStep, capacity_teff({" 0.03"}), aux, sa, 0.1, 0.0),
              SaTableOutcome::zero_step);
    EXPECT_EQ(FG2.text(1, 1), "");
    // Six capacity rows against L = 5.
    TextTable Fg = capacity_teff({" 0.03", " 0.03", " 0.03", " 0.03", " 0.03", " 0.03"});
    EXPECT_EQ(error_of([&] { calculare_sa(FG2, saAtStep, Fg, aux, sa, 0.1, 0.02); }), text::kSubscript);
    // What was written before the failure stays.
    EXPECT_EQ(FG2.text(5, 1), "0.6");
}

TEST(InputTeffFromCapacity, CopiesFromTheSkippedRowsAndLeavesColumnOne) {
    TextTable Fg = capacity_teff({" 0.1", " 0.2", " 0.3", " 0.4", " 0.5"});
    TextTable FG2(7, 4);
    FG2.set_text(0, 0, "Teff");
    for (long r = 1; r < 7; ++r) {
        FG2.set_text(r, 0, "old");
        FG2.set_text(r, 1, "sa");
    }
    input_teff_from_capacity(FG2, Fg, "1");
    // Rows 2 to 4 of the curve (the last data row is left out) go to rows 1 to 3.
    EXPECT_EQ(FG2.text(1, 0), " 0.2");
    EXPECT_EQ(FG2.text(3, 0), " 0.4");
    EXPECT_EQ(FG2.text(4, 0), "");
    EXPECT_EQ(FG2.text(6, 0), "");
    EXPECT_EQ(FG2.text(4, 1), "sa");
    EXPECT_EQ(FG2.text(0, 0), "Teff");
}

// A swept table by hand: three curve rows, a crossing, demand in four rows.
TextTable swept_table() {
    TextTable Fg3(6, kCount);
    header(Fg3);
    const std::string path = std::string(TV_SOURCE_DIR) + "/tests/golden/inputs/swept_table.txt";
    for (const std::string& line : test::lines_of(path)) {
        std::istringstream cell(line);
        long r = 0, c = 0;
        std::string text;
        if (!line.starts_with('#') && cell >> r >> c >> text) Fg3.set_text(r, c, text);
    }
    return Fg3;
}

// The diagram's series a line each, x then y from element 0 ("none" when not allocated), then
// the largest abscissa and ordinate; against tests/golden/windows/fillarray_<name>.txt.
void expect_diagram(const CapacityDiagram& g, const std::string& name) {
    std::string out;
    for (const DiagramSeries& s : g.series) {
        for (const text::DoubleArray* a : {&s.x, &s.y}) {
            if (!a->allocated()) out += " none";
            for (long i = 0; a->allocated() && i <= a->ubound(); ++i) out += " " + test::shortest((*a)(i));
            out += " |";
        }
        out += "\n";
    }
    test::expect_state(out + "max " + test::shortest(g.maxAbscissa) + " " + test::shortest(g.maxOrdinate) + "\n",
                       "fillarray_" + name);
}

// Demand (1.25 in row 2), reduced demand, capacity and sweep of four and three rows, the bilinear
// form of the curve's three rows only (a text below them is not read); element 0 never written;
// the largest abscissa 3 and ordinate 1.25. Without a crossing the bilinear series stays empty;
// a gap in the demand's Sd leaves a zero behind.
TEST(Fillarray, FiveSeriesTheLargestValuesNoCrossingAndAGap) {
    TextTable Fg3 = swept_table();
    Fg3.set_text(4, kBilinearD, "9.0000");
    Fg3.set_text(4, kBilinearA, "9.0000");
    expect_diagram(fillarray(Fg3), "five_series");
    Fg3 = swept_table();
    Fg3.set_text(3, kSdDemand, "");
    expect_diagram(fillarray(Fg3), "gap");
    Fg3 = swept_table();
    for (long r = 1; r <= 3; ++r) {
        Fg3.set_text(r, kBilinearD, "");
        Fg3.set_text(r, kBilinearA, "");
    }
    expect_diagram(fillarray(Fg3), "no_crossing");
}

class GridTableTest : public ::testing::Test {
protected:
    GridTableTest() : app(platform), form(app, "Form", "Form") {}
    test::FakePlatform platform;
    forms::App app;
    forms::Form form;
    forms::Grid& grid = form.grid("Fg3", 3, 4);
};

TEST_F(GridTableTest, ToTableTakesTextsLayoutAndColours) {
    grid.set_text(0, 1, "Target");
    grid.set_text(2, 3, " 0.25");
    grid.set_col_hidden(0, true);
    grid.set_col_width(1, 1000);
    grid.set_col_alignment(2, windows::kLeftCentre);
    grid.set_cell_back_color(2, 1, windows::kRed);
    const windows::TextTable t = to_table(grid);
    EXPECT_EQ(t.rows(), 3);
    EXPECT_EQ(t.cols(), 4);
    EXPECT_EQ(t.text(0, 1), "Target");
    EXPECT_EQ(t.text(2, 3), " 0.25");  // the leading blank is part of the text
    EXPECT_TRUE(t.col_hidden(0));
    EXPECT_FALSE(t.col_hidden(1));
    EXPECT_EQ(t.col_width(1), 1000);
    EXPECT_EQ(t.col_alignment(2), windows::kLeftCentre);
    EXPECT_EQ(t.cell_color(2, 1), windows::kRed);
    EXPECT_EQ(t.cell_colors().size(), 1u);
}

TEST_F(GridTableTest, CopyToGridResizesAndResetsColoursTheTableDroppedInOneRefresh) {
    grid.set_cell_back_color(1, 1, windows::kBlue);
    grid.set_cell_back_color(2, 2, windows::kRed);
    grid.set_col_width(3, 700);
    windows::TextTable t = to_table(grid);
    t.clear();  // drops the colours, as the sweep's clearing does
    t.set_rows(40);
    for (int r = 1; r < 40; ++r) t.set_text(r, 1, std::to_string(r));
    t.set_text(4, 0, "x");
    t.set_cell_color(4, 2, windows::kBlue);
    t.set_col_hidden(2, true);
    int updates = 0;
    grid.changed = [&] { ++updates; };
    copy_to_grid(t, grid);
    EXPECT_EQ(updates, 1);  // the copy reaches the view as one refresh
    EXPECT_EQ(grid.rows(), 40);
    EXPECT_EQ(grid.text(4, 0), "x");
    EXPECT_EQ(grid.text(39, 1), "39");
    EXPECT_EQ(grid.cell_back_color(1, 1), -1);
    EXPECT_EQ(grid.cell_back_color(2, 2), -1);
    EXPECT_EQ(grid.cell_back_color(4, 2), windows::kBlue);
    EXPECT_TRUE(grid.col_hidden(2));
    EXPECT_EQ(grid.col_width(3), 700);
}

TEST_F(GridTableTest, ATableWithoutWidthsLeavesTheGridsAndRedrawComesBack) {
    grid.set_col_width(0, 500);
    grid.set_col_alignment(0, 4);
    windows::TextTable t(2, 4);
    copy_to_grid(t, grid);
    EXPECT_EQ(grid.col_width(0), 500);
    EXPECT_EQ(grid.col_alignment(0), 4);
    EXPECT_TRUE(grid.redraw());
    grid.set_redraw(false);
    copy_to_grid(t, grid);
    EXPECT_FALSE(grid.redraw());  // a suspended grid stays suspended
}

TEST_F(GridTableTest, AFailureInsideCopiesWhatTheTableHoldsBackAndGoesOn) {
    EXPECT_EQ(error_of([&] {
                  with_table(grid, [](windows::TextTable& t) {
                      t.set_text(1, 1, "written before the failure");
                      t.text(9, 0);  // beyond the table
                  });
              }),
              text::kSubscript);
    EXPECT_EQ(grid.text(1, 1), "written before the failure");
    EXPECT_EQ(with_table(grid, [](windows::TextTable& t) { return t.rows(); }), 3);
}

}  // namespace
}  // namespace tv::windows
