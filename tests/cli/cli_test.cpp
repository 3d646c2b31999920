// The batch front end: its command line, exit statuses, file failures, the spectra command's record steps
// and its manual page.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

#include "cli_run.h"
#include "support/fake_platform.h"

namespace tv::test {
namespace {

const std::string kSamples = std::string(TV_SOURCE_DIR) + "/samples/";

TEST(CliTest, VersionHelpAndUsageErrors) {
    CliResult v = run_cli({"--version"});
    EXPECT_EQ(v.status, 0);
    EXPECT_EQ(v.out.rfind("tremorvault-cli ", 0), 0u);

    CliResult h = run_cli({"--help"});
    EXPECT_EQ(h.status, 0);
    EXPECT_NE(h.out.find("spectra"), std::string::npos);

    EXPECT_EQ(run_cli({}).status, 2);
    CliResult bogus = run_cli({"bogus"});
    EXPECT_EQ(bogus.status, 2);
    EXPECT_NE(bogus.err.find("usage:"), std::string::npos);

    CliResult opt = run_cli({"spectra", "--no-such-option", "x", "y"});
    EXPECT_EQ(opt.status, 2);
    EXPECT_NE(opt.err.find("--no-such-option"), std::string::npos);
    EXPECT_EQ(run_cli({"spectra", kSamples + "synthetic_X.txt"}).status, 2);  // a Y file is missing
    EXPECT_EQ(run_cli({"spectra", "--help"}).status, 0);
}

TEST(CliTest, SpectraPrintsThePeaksOfEachRecord) {
    CliResult r = run_cli({"spectra", "--first-line", "5", "--dt", "0.01", kSamples + "synthetic_X.txt",
                           kSamples + "synthetic_Y.txt"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "records: 1\npeak X 1: 0.35\npeak Y 1: 0.3\ndesign points: 400\nmeasure: (Pseudo.Acceleration)\n");
    EXPECT_EQ(r.err, "");
}

TEST(CliTest, SpectraOnTwoRealRecordsWithScaleAndPeak) {
    std::string a = data_path("records/kocaeli1999_duzce_180.txt"), b = data_path("records/kocaeli1999_duzce_270.txt");
    std::string c = data_path("records/tabas1978_ferdows_L1.txt"), d = data_path("records/tabas1978_ferdows_T1.txt");
    if (a.empty() || c.empty()) GTEST_SKIP() << "shared data not present";
    CliResult r = run_cli({"spectra", "--first-line", "5", "--scale", "1.0,2", "--max-value", "0.3641835,0.5", a, b, c, d});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out.substr(0, r.out.find("design points")),
              "records: 2\npeak X 1: 0.3119112\npeak Y 1: 0.3641835\n"
              "peak X 2: 0.44394392\npeak Y 2: 0.5\n");  // X follows Y to the new peak
}

TEST(CliTest, ALastLineBeyondTheFileStopsWithStatusOne) {
    CliResult r = run_cli({"spectra", "--first-line", "5", "--last-line", "99999", kSamples + "synthetic_X.txt",
                           kSamples + "synthetic_Y.txt"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "Error: Error In First line or Last line\n");
}

TEST(CliTest, AnUnreadableFileIsStatusOneWithItsName) {
    CliResult r = run_cli({"spectra", "/nonexistent/x.txt", kSamples + "synthetic_Y.txt"});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("/nonexistent/x.txt"), std::string::npos);
    EXPECT_NE(r.err.find("No such file"), std::string::npos);
}

TEST(CliTest, AFolderGivenAsARecordFileIsStatusOneWithItsName) {
    const auto folder = std::filesystem::temp_directory_path() / ("tv_cli_folder_" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    CliResult r = run_cli({"spectra", folder.string(), kSamples + "synthetic_Y.txt"});
    std::filesystem::remove_all(folder);
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "tremorvault-cli: " + folder.string() + ": Is a directory\n");
    EXPECT_EQ(r.out, "");
}

// An export that cannot be written ends the run as a file error, not as a run-time error.
class CliExportTest : public ::testing::Test {
protected:
    CliExportTest() {
        dir = std::filesystem::temp_directory_path() / ("tv_cli_export_" + std::to_string(::getpid()));
        std::filesystem::create_directories(dir / "taken.txt");  // a folder where the file should go
    }
    ~CliExportTest() override { std::filesystem::remove_all(dir); }
    std::vector<std::string> record() const {
        return {"--first-line", "5", kSamples + "synthetic_X.txt", kSamples + "synthetic_Y.txt"};
    }
    std::filesystem::path dir;
};

TEST_F(CliExportTest, SpectraExportIntoAMissingFolder) {
    const std::string name = (dir / "missing" / "spectra.txt").string();
    std::vector<std::string> args{"spectra", "--export-spectra", name};
    for (const auto& a : record()) args.push_back(a);
    CliResult r = run_cli(args);
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "tremorvault-cli: " + name + ": No such file or directory\n");
    EXPECT_NE(r.out.find("measure: (Pseudo.Acceleration)\n"), std::string::npos);  // the results before stand
    EXPECT_FALSE(std::filesystem::exists(dir / "missing"));
}

TEST_F(CliExportTest, ComparisonExportOntoAFolder) {
    const std::string name = (dir / "taken.txt").string();
    std::vector<std::string> args{"spectra", "--compare", "--export-comparison", name};
    for (const auto& a : record()) args.push_back(a);
    CliResult r = run_cli(args);
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "tremorvault-cli: " + name + ": Is a directory\n");
    EXPECT_NE(r.out.find("scale factor: "), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_directory(name));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir), {}), 1);  // no temporary left behind
}

TEST_F(CliExportTest, FourierExportUnderAFileNotAFolder) {
    // A plain file stands where the folder should be; the name rule adds ".txt" first.
    const std::string name = (dir / "plain").string();
    std::ofstream(dir / "plain") << "x\n";
    std::vector<std::string> args{"fourier", "--omega-lim", "20", "--delta-omega", "1", "--export-fft", name + "/fft"};
    for (const auto& a : record()) args.push_back(a);
    CliResult r = run_cli(args);
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "tremorvault-cli: " + name + "/fft.txt: Not a directory\n");
    EXPECT_NE(r.out.find("peak omega: "), std::string::npos);

    const std::string history = (dir / "missing" / "history.txt").string();
    args = {"fourier", "--omega-lim", "20", "--delta-omega", "1", "--export-history", history};
    for (const auto& a : record()) args.push_back(a);
    CliResult h = run_cli(args);
    EXPECT_EQ(h.status, 1);
    EXPECT_EQ(h.err, "tremorvault-cli: " + history + ": No such file or directory\n");
}

TEST(CliTest, ARunTimeErrorIsStatusThree) {
    // An emptied peak divides by zero in Show Diagram.
    CliResult r = run_cli({"spectra", "--first-line", "5", "--max-value", "0", kSamples + "synthetic_X.txt",
                           kSamples + "synthetic_Y.txt"});
    EXPECT_EQ(r.status, 3);
    EXPECT_NE(r.err.find("run-time error: "), std::string::npos);
}

TEST(CliTest, SpectraOptionsReachTheirWindows) {
    const std::string x = kSamples + "synthetic_X.txt", y = kSamples + "synthetic_Y.txt";
    CliResult sd = run_cli({"spectra", "--first-line", "5", "--measure", "sd", "--tend", "2", "--step", "0.02", x, y});
    EXPECT_EQ(sd.status, 0) << sd.err;
    EXPECT_NE(sd.out.find("design points: 100\n"), std::string::npos);
    EXPECT_NE(sd.out.find("measure: (Displacement)\n"), std::string::npos);

    CliResult bad = run_cli({"spectra", "--hazard", "extreme", x, y});
    EXPECT_EQ(bad.status, 2);
    EXPECT_NE(bad.err.find("--hazard"), std::string::npos);

    // A period grid starting at 0 writes one ordinate too many: a run-time error in Form2.
    CliResult zero = run_cli({"spectra", "--first-line", "5", "--tstart", "0", x, y});
    EXPECT_EQ(zero.status, 3);
    EXPECT_NE(zero.err.find("run-time error: Subscript out of range"), std::string::npos);

    // The same rounded factor, whichever way the band is typed.
    CliResult a = run_cli({"spectra", "--first-line", "5", "--compare", "--hazard", "very-high", "--soil", "IV", x, y});
    CliResult b = run_cli({"spectra", "--first-line", "5", "--compare", "--hazard", "very-high", "--soil", "IV",
                           "--band-start", "0.010", "--band-end", "4.0", x, y});
    EXPECT_EQ(a.status, 0) << a.err;
    EXPECT_NE(a.out.find("scale factor: "), std::string::npos);
    EXPECT_EQ(a.out, b.out);
}

// The manual page is made from the help at build time: it must hold every command and option.
TEST(CliTest, ManualPageHoldsEveryCommandAndOption) {
    std::ifstream in(TV_BINARY_DIR "/packaging/tremorvault-cli.1");
    ASSERT_TRUE(in) << "manual page not built";
    const std::string page{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    auto roff = [](std::string s) {
        for (std::size_t i = 0; (i = s.find('-', i)) != std::string::npos; i += 2) s.insert(i, "\\");
        return s;
    };
    const std::string version = run_cli({"--version"}).out;
    EXPECT_NE(page.find('"' + version.substr(0, version.find('\n')) + '"'), std::string::npos);  // in its title line
    const std::string usage = run_cli({"--help"}).out;
    const std::regex command("\n  ([a-z]+)  "), option("--[a-z0-9-]+");
    int commands = 0;
    for (std::sregex_iterator c(usage.begin(), usage.end(), command), end; c != end; ++c, ++commands) {
        const std::string name = (*c)[1];
        EXPECT_NE(page.find(".SS " + name + "\n"), std::string::npos) << name;
        const std::string help = run_cli({name, "--help"}).out;
        for (std::sregex_iterator o(help.begin(), help.end(), option); o != end; ++o)
            EXPECT_NE(page.find(roff(o->str())), std::string::npos) << name << ' ' << o->str();
    }
    EXPECT_GT(commands, 0);
}

}  // namespace
}  // namespace tv::test
