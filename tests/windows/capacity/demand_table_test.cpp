// The step table Fg and the demand table FG2 of the capacity wizard.
#include <gtest/gtest.h>

#include "capacity_fixture.h"
#include "compute/capacity/capacity_reader.h"
#include "text/runtime_error.h"
#include "windows/capacity/demand_table.h"
#include "windows/capacity/step_table.h"

namespace tv::windows {
namespace {

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

}  // namespace
}  // namespace tv::windows
