// tremorvault-cli capacity: the wizard in batch on a smooth yielding curve written for each test.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "cli_run.h"

namespace tv::test {
namespace {

class CapacityCliTest : public ::testing::Test {
protected:
    CapacityCliTest() {
        dir = std::filesystem::temp_directory_path() /
              ("tv_capacity_cli_" + std::to_string(::getpid()) + "_" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(dir);
        curve = write("capacity.txt", smooth_curve());
    }
    ~CapacityCliTest() override { std::filesystem::remove_all(dir); }

    // Sa = 1 g tanh(Sd / Sdy) for an elastic period of 0.5 s, Sd to 400 mm in 24 steps, with
    // the secant period as Teff; Sd in mm, Sa in g.
    static std::string smooth_curve() {
        const double pi = 3.141592653589793, g = 9810, T1 = 0.5, Say = 1.0;
        const double Sdy = Say * g * (T1 / (2 * pi)) * (T1 / (2 * pi));
        std::string s = "Sample curve\n  Step  Teff  Betaeff  Sd_C  Sa_C  Sd_d  Sa_d  ALPHA  Pf_fi\n";
        char line[160];
        for (int step = 0; step <= 24; ++step) {
            const double Sd = 400.0 * step / 24;
            const double Sa = Say * std::tanh(Sd / Sdy);
            const double Teff = Sd == 0 ? T1 : 2 * pi * std::sqrt(Sd / (Sa * g));
            std::snprintf(line, sizeof line, " %d %.6f 5.0000 %.4f %.6f %.4f %.6f 0.8200 1.3100\n", step, Teff, Sd,
                          Sa, Sd, Sa);
            s += line;
        }
        return s;
    }
    std::string write(const std::string& name, const std::string& content) {
        std::ofstream(dir / name, std::ios::binary) << content;
        return (dir / name).string();
    }
    static std::string read(const std::filesystem::path& p) {
        std::ifstream in(p, std::ios::binary);
        std::ostringstream s;
        s << in.rdbuf();
        return s.str();
    }
    std::filesystem::path dir;
    std::string curve;
};

TEST_F(CapacityCliTest, TheDefaultsPrintTheFiveResultsInOrder) {
    CliResult r = run_cli({"capacity", curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "target displacement: 160.4003\nunit: mm\nSRA: 0.4326\nSRV: 0.5621\nBeff: 29.1625\n");
    EXPECT_EQ(r.err, "");
}

TEST_F(CapacityCliTest, ATypedGravityStandsOverTheUnits) {
    // cm with g typed as 9810 is the mm run under another name.
    CliResult same = run_cli({"capacity", "--unit", "cm", "--g", "9810", curve});
    EXPECT_EQ(same.status, 0) << same.err;
    EXPECT_EQ(same.out, "target displacement: 160.4003\nunit: cm\nSRA: 0.4326\nSRV: 0.5621\nBeff: 29.1625\n");
    // The unit's own 981 shrinks the demand displacement tenfold: no crossing at all.
    CliResult cm = run_cli({"capacity", "--unit", "cm", curve});
    EXPECT_EQ(cm.status, 0) << cm.err;
    EXPECT_EQ(cm.out, "target displacement: \nunit: cm\nSRA: \nSRV: \nBeff: \n");
}

TEST_F(CapacityCliTest, DemandAndStructureOptionsReachTheWindow) {
    const std::string base = run_cli({"capacity", curve}).out;
    for (const std::vector<std::string>& extra :
         {std::vector<std::string>{"--type", "C"}, {"--type", "B"}, {"--scale", "0.35"}, {"--soil", "IV"},
          {"--risk", "high", "--soil", "IV"}, {"--t0", "0.8"}, {"--skip", "2"}, {"--m", "3"}}) {
        std::vector<std::string> args{"capacity"};
        args.insert(args.end(), extra.begin(), extra.end());
        args.push_back(curve);
        CliResult r = run_cli(args);
        EXPECT_EQ(r.status, 0) << extra[0] << ": " << r.err;
        EXPECT_NE(r.out, base) << extra[0];
        EXPECT_EQ(r.out.rfind("target displacement: ", 0), 0u);
    }
    // The period grid of the demand: a grid ending at 2 s still covers the curve's periods.
    CliResult grid = run_cli({"capacity", "--tstart", "0.02", "--tend", "2", "--step", "0.01", curve});
    EXPECT_EQ(grid.status, 0) << grid.err;
}

TEST_F(CapacityCliTest, ASpectrumFileBelowTheCurveGivesNoTargetPoint) {
    std::string spectrum;
    for (int i = 1; i <= 400; ++i) spectrum += std::to_string(i * 0.01) + " 0.01\n";
    CliResult r = run_cli({"capacity", "--spectrum-file", write("low.txt", spectrum), curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "target displacement: \nunit: mm\nSRA: \nSRV: \nBeff: \n");
    CliResult teff = run_cli({"capacity", "--teff-from-capacity", "--skip", "1", curve});
    EXPECT_EQ(teff.status, 0) << teff.err;
}

TEST_F(CapacityCliTest, TableWritesTheClipboardText) {
    const auto table = dir / "table.txt";
    CliResult r = run_cli({"capacity", "--table", table.string(), curve});
    EXPECT_EQ(r.status, 0) << r.err;
    const std::string text = read(table);
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(text.substr(0, text.find("\r\n")).rfind("\tTarget\tstep\tS(dpi)\tS(api)\tT\tSa\t", 0), 0u);
    EXPECT_EQ(text.substr(text.size() - 2), "\r\n");
    // Header and one line per row of the calculation table: 4 / 0.02 = 200 periods.
    std::size_t lines = 0;
    for (std::size_t p = 0; (p = text.find("\r\n", p)) != std::string::npos; p += 2) ++lines;
    EXPECT_EQ(lines, 200u);
    EXPECT_FALSE(std::filesystem::exists(table.string() + ".tmp"));
}

TEST_F(CapacityCliTest, ReportPdfWritesTheDiagramPage) {
    const auto pdf = dir / "diagram.pdf";
    CliResult r = run_cli({"capacity", "--report-pdf", pdf.string(), curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out.rfind("target displacement: 160.4003\n", 0), 0u);
    EXPECT_EQ(read(pdf).rfind("%PDF", 0), 0u);
}

TEST_F(CapacityCliTest, BadCommandLinesAndFailures) {
    EXPECT_EQ(run_cli({"capacity"}).status, 2);
    EXPECT_EQ(run_cli({"capacity", "--help"}).status, 0);
    CliResult type = run_cli({"capacity", "--type", "D", curve});
    EXPECT_EQ(type.status, 2);
    EXPECT_NE(type.err.find("--type takes one of A B C"), std::string::npos);
    EXPECT_EQ(run_cli({"capacity", "--unit", "km", curve}).status, 2);
    EXPECT_EQ(run_cli({"capacity", "--bogus", curve}).status, 2);

    CliResult missing = run_cli({"capacity", (dir / "none.txt").string()});
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.err.find("none.txt"), std::string::npos);

    // A step number beyond 16 bits is the reader's checked failure.
    CliResult big = run_cli({"capacity", write("big.txt", "Teff\n 40000 0.5 5 1 1 1 1 1 1\n")});
    EXPECT_EQ(big.status, 1);
    EXPECT_EQ(big.err, "Error: Error Reading Pushover file!\n");

    // A zero step fails in Show Diagram; Sa never comes, the last page is out of reach and the
    // results stay empty, as in the window.
    CliResult step = run_cli({"capacity", "--step", "0", curve});
    EXPECT_EQ(step.status, 0);
    EXPECT_EQ(step.err.rfind(": Division by zero\n", 0), 0u);

    // m = 0 takes the initial slope from the first row, where Sd is 0.
    CliResult m = run_cli({"capacity", "--m", "0", curve});
    EXPECT_EQ(m.status, 3);
    EXPECT_NE(m.err.find("run-time error: "), std::string::npos);
}

TEST_F(CapacityCliTest, TheShippedSampleRuns) {
    CliResult r = run_cli({"capacity", std::string(TV_SOURCE_DIR) + "/samples/capacity_sample.txt"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out.rfind("target displacement: ", 0), 0u);
    EXPECT_NE(r.out.find("\nBeff: "), std::string::npos);
}

TEST_F(CapacityCliTest, TheGuidesRunOnTheSampleWithASpectrumFile) {
    const std::string spectrum =
        write("spectrum.txt", "0.1 0.55\n0.2 0.75\n0.4 0.75\n0.6 0.6\n0.8 0.47\n1.0 0.39\n1.5 0.27\n2.0 0.2\n3.0 0.14\n");
    const std::filesystem::path table = dir / "table.txt", pdf = dir / "diagram.pdf";
    CliResult r = run_cli({"capacity", "--spectrum-file", spectrum, "--teff-from-capacity", "--type", "B", "--table",
                           table.string(), "--report-pdf", pdf.string(),
                           std::string(TV_SOURCE_DIR) + "/samples/capacity_sample.txt"});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "target displacement: 55.1425\nunit: mm\nSRA: 0.8814\nSRV: 0.9098\nBeff: 7.3571\n");
    EXPECT_TRUE(r.err.empty()) << r.err;
    // The heading row and 199 rows, each ending in CR LF.
    const std::string text = read(table);
    std::size_t lines = 0;
    for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at + 2)) ++lines;
    EXPECT_EQ(lines, 200u);
    EXPECT_EQ(read(pdf).rfind("%PDF", 0), 0u);
    // The same curve in metres: no crossing, empty results.
    CliResult m = run_cli({"capacity", "--unit", "m", std::string(TV_SOURCE_DIR) + "/samples/capacity_sample.txt"});
    ASSERT_EQ(m.status, 0) << m.err;
    EXPECT_EQ(m.out, "target displacement: \nunit: m\nSRA: \nSRV: \nBeff: \n");
}

TEST(CapacityCliImport, APushoverCurveNeedsAllThreeModalNumbers) {
    EXPECT_EQ(run_cli({"capacity", "--weight", "1000", "--alpha1", "0.8",
                       std::string(TV_SOURCE_DIR) + "/samples/pushover_listing.txt"})
                  .status,
              2);
}

}  // namespace
}  // namespace tv::test
