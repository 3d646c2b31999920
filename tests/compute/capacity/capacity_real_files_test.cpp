// The real capacity curves of ../shared/data/capacity. None of them is in the nine-column
// layout, so the reader must find nothing in them; one is turned into that layout here to run
// the whole road on a real curve.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>

#include "capacity_test_files.h"
#include "compute/capacity/capacity_reader.h"
#include "compute/capacity/capacity_results.h"
#include "compute/capacity/capacity_sweep.h"
#include "compute/capacity/demand_spectrum.h"
#include "support/fake_platform.h"
#include "text/number_text.h"

namespace tv::compute {
namespace {

using namespace fg3;

std::string need(const std::string& relative) { return tv::test::data_path("capacity/" + relative); }

TEST(RealCapacityFiles, FilesWithoutATeffLineGiveNoRowsAndNoError) {
    for (const char* name : {"pushover.txt", "capacity_spectrum.txt", "capacity_curves_Sd-Sa.csv"}) {
        std::string path = need(name);
        if (path.empty()) GTEST_SKIP() << "capacity data missing";
        CapacityTable t = read_capacity_file(path);
        EXPECT_TRUE(t.ok()) << name;
        EXPECT_TRUE(t.rows.empty()) << name;
    }
}

TEST(RealCapacityFiles, TabSeparatedPairsReadAsPeriodAndSa) {
    std::string path = need("capacity_spectrum.txt");
    if (path.empty()) GTEST_SKIP() << "capacity data missing";
    text::DoubleArray aux, sa;
    read_period_sa_file(path, aux, sa);
    // Eight lines, the last repeated, and the zero point the reader always adds.
    ASSERT_EQ(aux.ubound(), 9);
    EXPECT_EQ(aux(1), 0.001);
    EXPECT_EQ(sa(1), 0.0);
    EXPECT_EQ(aux(8), 1.16);
    EXPECT_EQ(sa(8), 0.27);
    EXPECT_EQ(aux(9), 0.0);
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

TEST(RealCapacityFiles, WholeRoadOnARealCurve) {
    std::string source = need("pushover.txt");
    if (source.empty()) GTEST_SKIP() << "capacity data missing";
    test::TempDir dir;
    CapacityTable curve = read_capacity_file(dir.write("capacity.txt", as_capacity_file(source)));
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
    fill_demand_spectrum(specCount, designSa, designAux, 0.01, 4.0, 0.02,
                         [](double T) { return short_spectrum(T, 0.35, {1.5, 0.1, 0.5}); });
    TextTable FG2(1, 4);
    ASSERT_EQ(calculare_sa(FG2, saAtStep, Fg, designAux, designSa, 4.0, 0.02), SaTableOutcome::filled);
    // The first step has period 0 and gets 0. The others lie on the falling branch, shifted by
    // half a step: the ordinate stored at period 0.02 k was worked out at 0.02 k - 0.01, so
    // Teff 0.817 reads (between grid points) the spectrum of 0.807.
    EXPECT_EQ(FG2.text(1, 1), "0");
    EXPECT_NEAR(text::val(FG2.text(8, 1)), 0.875 * std::pow(0.5 / 0.807, 2.0 / 3.0), 1e-4);

    SweepSettings set;
    set.T1 = "981";
    TextTable Fg3(1, kCount);
    SweepResults r;
    calculate(Fg, FG2, set, Fg3, r);

    // The last data row is left out: eleven rows swept.
    EXPECT_EQ(Fg3.text(11, kSdpi), "7.0210");
    EXPECT_EQ(Fg3.text(12, kSdpi), "");
    ASSERT_GT(r.lastCrossing, 1);
    const long i = r.lastCrossing;
    EXPECT_GT(text::val(Fg3.text(i - 1, kFinal)), 0.0);
    EXPECT_LT(text::val(Fg3.text(i, kFinal)), 0.0);
    EXPECT_EQ(Fg3.cell_color(i - 1, kStep), kRed);
    EXPECT_EQ(Fg3.cell_color(i, kStep), kRed);
    // The target point lies between the two rows, on the curve, 1.3 times its displacement.
    const double ds = text::val(Fg3.text(3, kBilinearD));
    EXPECT_GE(ds, text::val(Fg3.text(i - 1, kSdpi)));
    EXPECT_LE(ds, text::val(Fg3.text(i, kSdpi)));
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
}  // namespace tv::compute
