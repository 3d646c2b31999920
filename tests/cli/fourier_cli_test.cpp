// tremorvault-cli fourier: the record, the sum, the picks and both exports.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "cli_run.h"

namespace tv::test {
namespace {

const std::string kSamples = std::string(TV_SOURCE_DIR) + "/samples/";

TEST(FourierCliTest, PeakPicksAndExports) {
    const auto dir = std::filesystem::temp_directory_path() / ("tv_fourier_cli_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    CliResult r = run_cli({"fourier", "--first-line", "5", "--dt", "0.01", "--omega-lim", "100", "--picks", "3",
                           "--omega-step", "1", "--export-fft", (dir / "fft").string(), "--export-history",
                           (dir / "hist.txt").string(), kSamples + "synthetic_X.txt", kSamples + "synthetic_Y.txt"});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "peak omega: 11.25\npeak amplitude: 0.1826\nperiod: 0.56\n"
              "pick 1: 11.25 0.1826\npick 2: 12.6 0.1682\npick 3: 8.4 0.1569\n");
    EXPECT_EQ(r.err, "Information: Done\nInformation: Done\n");
    std::ifstream fft(dir / "fft.txt");
    std::string line;
    std::getline(fft, line);
    EXPECT_EQ(line, "      omega               Amp ");
    int lines = 1;
    while (std::getline(fft, line)) ++lines;
    EXPECT_EQ(lines, 2001);
    EXPECT_TRUE(std::filesystem::exists(dir / "hist.txt"));
    std::filesystem::remove_all(dir);
}

TEST(FourierCliTest, WithoutPicksOnlyThePeakAndItsPeriod) {
    CliResult r = run_cli({"fourier", "--first-line", "5", "--dt", "0.01", "--omega-lim", "20", "--delta-omega", "0.1",
                           kSamples + "synthetic_X.txt", kSamples + "synthetic_Y.txt"});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "peak omega: 11.2\npeak amplitude: 0.1822\nperiod: 0.56\n");
    EXPECT_EQ(r.err, "");
}

TEST(FourierCliTest, RequiredOptionAndFailures) {
    const std::string x = kSamples + "synthetic_X.txt", y = kSamples + "synthetic_Y.txt";
    EXPECT_EQ(run_cli({"fourier", x, y}).status, 2);
    EXPECT_EQ(run_cli({"fourier", "--omega-lim", "10", x}).status, 2);
    CliResult many = run_cli({"fourier", "--first-line", "5", "--omega-lim", "700", x, y});
    EXPECT_EQ(many.status, 0);  // an information box, not a failure
    EXPECT_EQ(many.err, "Error: Steps are too many...! Change Omega Lim or Delta Omega\n");
    EXPECT_EQ(many.out, "peak omega: \npeak amplitude: \nperiod: \n");
    CliResult bad = run_cli({"fourier", "--first-line", "5", "--omega-lim", "ten", x, y});
    EXPECT_EQ(bad.status, 3);
    EXPECT_EQ(bad.err, "run-time error: Type mismatch\n");
}

}  // namespace
}  // namespace tv::test
