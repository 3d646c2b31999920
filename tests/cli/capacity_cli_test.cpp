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

TEST_F(CapacityCliTest, ReportPdfWritesTheDiagramPage) {
    const auto pdf = dir / "diagram.pdf";
    CliResult r = run_cli({"capacity", "--report-pdf", pdf.string(), curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out.rfind("target displacement: 160.4003\n", 0), 0u);
    EXPECT_EQ(read(pdf).rfind("%PDF", 0), 0u);
}

}  // namespace
}  // namespace tv::test
