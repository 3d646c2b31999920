// The step table Fg and the demand table FG2 of the capacity wizard, and the whole road of the
// wizard's tables on a real curve.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>

#include "capacity_fixture.h"
#include "compute/capacity/demand_spectrum.h"
#include "text/number_text.h"
#include "text/runtime_error.h"
#include "windows/capacity/capacity_results.h"
#include "windows/capacity/demand_table.h"
#include "windows/capacity/step_table.h"
#include "windows/capacity/sweep_table.h"

namespace tv::windows {
namespace {

using test::CapacityTest;
using test::error_of;

TEST(StepTable, HeadingsAndTheCellsOfTheRowsAsCut) {
    const compute::CapacityTable t = compute::parse_capacity_lines(
        {" Step Teff Betaeff Sd_C Sa_C Sd_d Sa_d ALPHA Pf_fi", " 0 0.40 5 0 0 0 0 0 1.3",
         " 1 0.42 5 10.5 0.25 11 0.24 0.9 1.3"});
    TextTable Fg(1, 9);
    write_capacity_headings(Fg);
    write_capacity_rows(Fg, t);
    EXPECT_EQ(Fg.rows(), 3);
    EXPECT_EQ(Fg.row_texts(0), (std::vector<std::string>{"Step", "Teff", "Betaeff", "Sd_C", "Sa_C", "Sd_d",
                                                          "Sa_d", "ALPHA", "Pf_fi"}));
    EXPECT_EQ(Fg.text(2, 3), " 10.5");
    EXPECT_EQ(Fg.col_width(0), 500);
    EXPECT_EQ(Fg.col_alignment(8), kLeftCentre);

    // A later file without rows leaves the table as it stood.
    write_capacity_rows(Fg, compute::parse_capacity_lines({"nothing"}));
    EXPECT_EQ(Fg.rows(), 3);
}


// A spectrum on 0.02 .. 0.1 s as the wizard's Show Diagram stores it.
struct SmallSpectrum {
    text::DoubleArray aux{5}, sa{5};
    SmallSpectrum() {
        for (long j = 1; j <= 5; ++j) {
            aux(j) = 0.02 * static_cast<double>(j);
            sa(j) = 0.3 + 0.2 * static_cast<double>(j);
        }
    }
};

TextTable capacity_teff(const std::vector<std::string>& teff) {
    TextTable Fg(static_cast<int>(teff.size()) + 1, 9);
    for (std::size_t i = 0; i < teff.size(); ++i) {
        Fg.set_text(static_cast<long>(i) + 1, 0, std::to_string(i + 1));
        Fg.set_text(static_cast<long>(i) + 1, 1, teff[i]);
    }
    return Fg;
}

TEST(CalculareSa, FillsTheFourColumns) {
    SmallSpectrum s;
    TextTable Fg = capacity_teff({" 0.03", " 0", " 0.1"});
    TextTable FG2(3, 4);
    FG2.set_text(2, 1, "old");
    text::DoubleArray saAtStep;
    ASSERT_EQ(calculare_sa(FG2, saAtStep, Fg, s.aux, s.sa, 0.1, 0.02), SaTableOutcome::filled);
    // L = 0.1 / 0.02 = 5: six rows.
    ASSERT_EQ(FG2.rows(), 6);
    EXPECT_EQ(FG2.row_texts(0), (std::vector<std::string>{"Teff", "Sa", "T", "SA"}));
    // Teff 0.03 between 0.02 (0.5) and 0.04 (0.7); 0 gives 0; the last period finds nothing.
    EXPECT_EQ(FG2.row_texts(1), (std::vector<std::string>{" 0.03", "0.6", "0.02", "0.5"}));
    EXPECT_EQ(FG2.row_texts(2), (std::vector<std::string>{" 0", "0", "0.04", "0.7"}));
    EXPECT_EQ(FG2.row_texts(3), (std::vector<std::string>{" 0.1", "", "0.06", "0.9"}));
    EXPECT_EQ(FG2.row_texts(4), (std::vector<std::string>{"", "", "0.08", "1.1"}));
    // Column 3 runs to L - 1 only.
    EXPECT_EQ(FG2.row_texts(5), (std::vector<std::string>{"", "", "0.1", ""}));
    EXPECT_EQ(saAtStep.ubound(), 5);
    EXPECT_EQ(saAtStep(4), 1.1);
    EXPECT_EQ(saAtStep(5), 0.0);
    EXPECT_EQ(FG2.col_width(1), 2000);
    EXPECT_EQ(FG2.col_width(2), 1000);
    EXPECT_EQ(FG2.col_alignment(3), kLeftCentre);
}

TEST(CalculareSa, DefaultStepGivesTwoHundredAndOneRows) {
    std::int32_t specCount = 0;
    text::DoubleArray sa, aux, saAtStep;
    compute::fill_demand_spectrum(specCount, sa, aux, 0.01, 4.0, 0.02,
                                  [](double T) { return compute::short_spectrum(T, 0.35, {1.5, 0.1, 0.5}); });
    TextTable FG2(2, 4);
    calculare_sa(FG2, saAtStep, capacity_teff({" 0.5"}), aux, sa, 4.0, 0.02);
    EXPECT_EQ(FG2.rows(), 201);
    EXPECT_EQ(FG2.text(1, 1), "0.875");
}

TEST(CalculareSa, ZeroStepAndACurveLongerThanTheTable) {
    SmallSpectrum s;
    text::DoubleArray saAtStep;
    TextTable FG2(3, 4);
    FG2.set_text(1, 1, "x");
    EXPECT_EQ(calculare_sa(FG2, saAtStep, capacity_teff({" 0.03"}), s.aux, s.sa, 0.1, 0.0),
              SaTableOutcome::zero_step);
    EXPECT_EQ(FG2.text(1, 1), "");
    // Six capacity rows against L = 5.
    TextTable Fg = capacity_teff({" 0.03", " 0.03", " 0.03", " 0.03", " 0.03", " 0.03"});
    EXPECT_EQ(error_of([&] { calculare_sa(FG2, saAtStep, Fg, s.aux, s.sa, 0.1, 0.02); }), text::kSubscript);
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

// pushover.txt (Sd cm, Sa g, secant period s; two heading lines) in the nine-column layout,
// with PFPhi 1.3.
std::string as_capacity_file(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::string line, out = "Converted capacity spectrum\n Step Teff Betaeff Sd_C Sa_C Sd_d Sa_d ALPHA Pf_fi\n";
    int step = 0;
    for (int n = 0; std::getline(in, line); ++n) {
        if (n < 2) continue;
        std::istringstream fields(line);
        std::string sd, sa, period;
        if (!(fields >> sd >> sa >> period)) continue;
        out += " " + std::to_string(step++) + "\t" + period + "\t0\t" + sd + "\t" + sa + "\t0\t0\t0\t1.3\n";
    }
    return out;
}

TEST_F(CapacityTest, TheTablesOfTheWholeRoadOnARealCurve) {
    std::string source = test::data_path("capacity/pushover.txt");
    if (source.empty()) GTEST_SKIP() << "capacity data missing";
    compute::CapacityTable curve = compute::read_capacity_file(write("capacity.txt", as_capacity_file(source)));
    ASSERT_TRUE(curve.ok());
    ASSERT_EQ(curve.rows.size(), 12u);
    EXPECT_EQ(curve.rows[11].point.Sd_C, 7.3269);
    EXPECT_EQ(curve.rows[11].point.Teff, 0.913);

    TextTable Fg(1, 9);
    write_capacity_headings(Fg);
    write_capacity_rows(Fg, curve);

    // Soil II, low hazard, A = 0.35 g, the wizard's default period grid; cm: g = 981.
    std::int32_t specCount = 0;
    text::DoubleArray designSa, designAux, saAtStep;
    compute::fill_demand_spectrum(specCount, designSa, designAux, 0.01, 4.0, 0.02,
                                  [](double T) { return compute::short_spectrum(T, 0.35, {1.5, 0.1, 0.5}); });
    TextTable FG2(1, 4);
    ASSERT_EQ(calculare_sa(FG2, saAtStep, Fg, designAux, designSa, 4.0, 0.02), SaTableOutcome::filled);
    // The first step has period 0 and gets 0. The others lie on the falling branch, shifted by
    // half a step: the ordinate stored at period 0.02 k was worked out at 0.02 k - 0.01, so
    // Teff 0.817 reads (between grid points) the spectrum of 0.807.
    EXPECT_EQ(FG2.text(1, 1), "0");
    EXPECT_NEAR(text::val(FG2.text(8, 1)), 0.875 * std::pow(0.5 / 0.807, 2.0 / 3.0), 1e-4);

    SweepBoxes set;
    set.T1 = "981";
    TextTable Fg3(1, fg3::kCount);
    SweepResults r;
    calculate(Fg, FG2, set, Fg3, r);

    // The last data row is left out: eleven rows swept.
    EXPECT_EQ(Fg3.text(11, fg3::kSdpi), "7.0210");
    EXPECT_EQ(Fg3.text(12, fg3::kSdpi), "");
    ASSERT_GT(r.lastCrossing, 1);
    const long i = r.lastCrossing;
    EXPECT_GT(text::val(Fg3.text(i - 1, fg3::kFinal)), 0.0);
    EXPECT_LT(text::val(Fg3.text(i, fg3::kFinal)), 0.0);
    EXPECT_EQ(Fg3.cell_color(i - 1, fg3::kStep), kRed);
    EXPECT_EQ(Fg3.cell_color(i, fg3::kStep), kRed);
    // The target point lies between the two rows, on the curve, 1.3 times its displacement.
    const double ds = text::val(Fg3.text(3, fg3::kBilinearD));
    EXPECT_GE(ds, text::val(Fg3.text(i - 1, fg3::kSdpi)));
    EXPECT_LE(ds, text::val(Fg3.text(i, fg3::kSdpi)));
    EXPECT_NEAR(text::val(r.Re1), 1.3 * ds, 1e-3);
    // Type A limits hold, and the damping is more than the elastic 5 percent.
    EXPECT_GE(text::val(r.Re2), 0.33);
    EXPECT_GE(text::val(r.Re3), 0.5);
    EXPECT_GT(text::val(r.Re4), 5.0);

    CapacityDiagram g = fillarray(Fg3);
    EXPECT_EQ(g.series[CapacityDiagram::kCapacity].x.ubound(), 11);
    EXPECT_EQ(g.series[CapacityDiagram::kBilinear].x.ubound(), 3);
    EXPECT_EQ(g.maxAbscissa, 7.021);
    std::string clip = clipboard_text(Fg3, {});
    EXPECT_EQ(clip.rfind("\tTarget\tstep\t", 0), 0u);
    // Where this curve meets the demand reduced by about 32 percent damping.
    EXPECT_EQ(i, 7);
    EXPECT_EQ(r.Re1, "5.4674");
}

}  // namespace
}  // namespace tv::windows
