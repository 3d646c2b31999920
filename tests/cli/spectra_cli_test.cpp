// tremorvault-cli spectra: each option reaches its box, failures end as the windows end them, and
// the batch run gives the same factor and export as the same clicks on the windows.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <tuple>

#include "cli_run.h"
#include "support/fake_platform.h"
#include "windows/project/project_fixture.h"
#include "windows/spectra/comparison_window.h"
#include "windows/spectra/design_spectrum_window.h"
#include "windows/spectra/response_spectrum_window.h"

namespace tv::test {
namespace {

const std::string kSamples = std::string(TV_SOURCE_DIR) + "/samples/";
const std::string kX = kSamples + "synthetic_X.txt";
const std::string kY = kSamples + "synthetic_Y.txt";

std::string slurp(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

std::vector<std::string> lines_of(const std::filesystem::path& p) {
    std::ifstream in(p);
    std::vector<std::string> lines;
    for (std::string l; std::getline(in, l);) lines.push_back(l);
    return lines;
}

// The value of `key: value` in the output, or "(none)".
std::string value_of(const std::string& out, const std::string& key) {
    std::istringstream in(out);
    for (std::string line; std::getline(in, line);)
        if (line.rfind(key + ": ", 0) == 0) return line.substr(key.size() + 2);
    return "(none)";
}

class SpectraCliTest : public ::testing::Test {
protected:
    SpectraCliTest() {
        dir = std::filesystem::temp_directory_path() /
              ("tv_spectra_cli_" + std::to_string(::getpid()) + "_" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(dir);
    }
    ~SpectraCliTest() override { std::filesystem::remove_all(dir); }
    CliResult spectra(std::vector<std::string> options) {
        std::vector<std::string> args{"spectra", "--first-line", "5"};
        args.insert(args.end(), options.begin(), options.end());
        args.push_back(kX);
        args.push_back(kY);
        return run_cli(args);
    }
    std::string ordinates(const std::string& name, const std::string& value, int lines) {
        std::ofstream out(dir / name);
        for (int i = 0; i < lines; ++i) out << value << "\n";
        return (dir / name).string();
    }
    std::filesystem::path dir;
};

TEST_F(SpectraCliTest, ADesignFileGivesTheTarget) {
    CliResult plain = spectra({"--compare"});
    ASSERT_EQ(plain.status, 0) << plain.err;
    // Tiny ordinates: the target lies under the average everywhere.
    CliResult zero = spectra({"--compare", "--design-file", ordinates("tiny.txt", "0.001", 400)});
    EXPECT_EQ(zero.status, 0) << zero.err;
    EXPECT_EQ(value_of(zero.out, "design points"), "400");
    EXPECT_EQ(value_of(zero.out, "scale factor"), "1");
    // High ordinates, taken as they are: the scale A does not touch them.
    CliResult high = spectra({"--compare", "--design-file", ordinates("high.txt", "5", 400)});
    CliResult higher = spectra({"--compare", "--design-scale", "0.9", "--design-file", ordinates("h2.txt", "5", 400)});
    EXPECT_EQ(high.status, 0) << high.err;
    EXPECT_GT(std::stod(value_of(high.out, "scale factor")), std::stod(value_of(plain.out, "scale factor")));
    EXPECT_EQ(value_of(high.out, "scale factor"), value_of(higher.out, "scale factor"));
    // A file that is not there: status 1 with its name, before any window.
    CliResult missing = spectra({"--design-file", (dir / "nothing.txt").string()});
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.err.find((dir / "nothing.txt").string()), std::string::npos);
}

TEST_F(SpectraCliTest, TheDesignScaleStandsOverTheHazardsDefault) {
    CliResult low = spectra({"--compare"});
    CliResult typed = spectra({"--compare", "--design-scale", "0.6"});
    CliResult same = spectra({"--compare", "--design-scale", "0.2"});  // the default of Low
    ASSERT_EQ(typed.status, 0) << typed.err;
    EXPECT_EQ(low.out, same.out);
    // Three times the target: three times the shortfall, to the rounding of two decimals.
    const double z1 = std::stod(value_of(low.out, "scale factor"));
    const double z3 = std::stod(value_of(typed.out, "scale factor"));
    EXPECT_GT(z1, 1);
    EXPECT_NEAR(z3, 3 * z1, 0.02);
}

TEST_F(SpectraCliTest, EachMeasureNamesItselfAndFillsTheExport) {
    std::map<std::string, std::string> caption{{"psa", "(Pseudo.Acceleration)"},
                                               {"psv", "(Pseudo.Velocity)"},
                                               {"sv", "(Velocity)"},
                                               {"sd", "(Displacement)"}};
    std::map<std::string, std::vector<std::string>> rows;
    for (const auto& [m, text] : caption) {
        const std::string file = (dir / (m + ".txt")).string();
        CliResult r = spectra({"--measure", m, "--export-spectra", file});
        ASSERT_EQ(r.status, 0) << m << ": " << r.err;
        EXPECT_EQ(value_of(r.out, "measure"), text);
        EXPECT_EQ(value_of(r.out, "scale factor"), "(none)");
        rows[m] = lines_of(file);
    }
    // The accelerations are the same, the spectrum columns are not.
    ASSERT_GT(rows["psa"].size(), 60u);
    for (const char* m : {"psv", "sv", "sd"}) {
        ASSERT_EQ(rows[m].size(), rows["psa"].size());
        EXPECT_EQ(rows[m][50].substr(0, 20), rows["psa"][50].substr(0, 20));
        EXPECT_NE(rows[m][50], rows["psa"][50]) << m;
    }
    // Pseudo acceleration over pseudo velocity is wd at each period: larger at short periods.
    std::istringstream a(rows["psa"][10]), v(rows["psv"][10]);
    std::vector<double> av, vv;
    for (std::string c; a >> c;) av.push_back(std::stod(c));
    for (std::string c; v >> c;) vv.push_back(std::stod(c));
    ASSERT_EQ(av.size(), 12u);
    EXPECT_GT(av[6], vv[6]);
}

TEST_F(SpectraCliTest, TheSpectraExportWithoutTheComparison) {
    const std::string file = (dir / "plain").string();
    CliResult r = spectra({"--export-spectra", file});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.err, "Information: Done\n");
    const auto lines = lines_of(file + ".txt");
    EXPECT_EQ(lines[0], windows::kResponseExportHeading);
    // N rows: the record's last line, counted from the top of the file.
    std::size_t last = lines_of(kX).size();
    EXPECT_EQ(lines.size(), 1 + last);
    std::istringstream row(lines[1]);
    int cells = 0;
    for (std::string c; row >> c;) ++cells;
    EXPECT_EQ(cells, 12);
}

TEST_F(SpectraCliTest, TheLargerComponentRuleAndTheSaScale) {
    const std::string file = (dir / "max.txt").string();
    CliResult max = spectra({"--compare", "--rule", "max", "--export-comparison", file});
    ASSERT_EQ(max.status, 0) << max.err;
    const auto lines = lines_of(file);
    EXPECT_EQ(lines[0].substr(lines[0].size() - 9), "Smax(Ave)");
    // The rule's own Sa Scale is 1.3; typing it gives the same run.
    CliResult typed = spectra({"--compare", "--rule", "max", "--sa-scale", "1.3"});
    EXPECT_EQ(value_of(typed.out, "scale factor"), value_of(max.out, "scale factor"));
    CliResult srss = spectra({"--compare", "--sa-scale", "1.17"});
    CliResult plain = spectra({"--compare"});
    EXPECT_EQ(srss.out, plain.out);
    CliResult doubled = spectra({"--compare", "--sa-scale", "2.34"});
    EXPECT_NEAR(std::stod(value_of(doubled.out, "scale factor")), 2 * std::stod(value_of(plain.out, "scale factor")),
                0.02);

    CliResult bad = spectra({"--compare", "--rule", "mean"});
    EXPECT_EQ(bad.status, 2);
    EXPECT_NE(bad.err.find("--rule"), std::string::npos);
    EXPECT_NE(bad.err.find("usage:"), std::string::npos);
    EXPECT_TRUE(bad.out.empty());
}

TEST_F(SpectraCliTest, ABandEndAboveTheGridIsRefusedInPersianAndPutBack) {
    CliResult plain = spectra({"--compare"});
    CliResult over = spectra({"--compare", "--band-end", "5"});
    EXPECT_EQ(over.status, 0) << over.err;
    // The box has no title: the line starts with ": ".
    EXPECT_EQ(over.err, std::string(": ") + windows::kBandEndMessage + "\n");
    EXPECT_EQ(over.out, plain.out);  // the end is back at 4
    CliResult equal = spectra({"--compare", "--band-end", "4"});
    EXPECT_TRUE(equal.err.empty());
}

TEST_F(SpectraCliTest, AGridEndBelowItsStartGivesNoOrdinatesAndBlankCharts) {
    CliResult r = spectra({"--tend", "0.004"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(value_of(r.out, "design points"), "0");
}

// The same road on the window models, click for click, against the batch run.
class DesktopRoadTest : public ProjectTest {};

TEST_F(DesktopRoadTest, TheWindowsGiveTheBatchFactorAndExport) {
    const std::string x1 = data_path("records/northridge1994_rinaldi_228.txt");
    const std::string y1 = data_path("records/northridge1994_rinaldi_318.txt");
    const std::string x2 = data_path("records/tabas1978_ferdows_L1.txt");
    const std::string y2 = data_path("records/tabas1978_ferdows_T1.txt");
    if (x1.empty() || x2.empty()) GTEST_SKIP() << "shared data not present";
    const std::string batchFile = (dir / "batch.txt").string();
    CliResult batch = run_cli({"spectra", "--first-line", "5", "--dt", "0.01,0.02", "--hazard", "high", "--soil",
                               "III", "--compare", "--rule", "max", "--band-start", "0.1", "--band-end", "3",
                               "--export-comparison", batchFile, x1, y1, x2, y2});
    ASSERT_EQ(batch.status, 0) << batch.err;

    platform.input_answers = {"2", "5"};
    for (const auto& [x, y, dt] : {std::tuple{x1, y1, "0.01"}, std::tuple{x2, y2, "0.02"}}) {
        open_record(x, y);
        program.run([&] { form1().xstep.set_text(dt); });
        program.run([&] { form1().Command2.press(); });
        program.run([&] { form1().xnext.press(); });
    }
    auto& f2 = program.form<windows::Form2>();
    program.run([&] { f2.Option6.user_click(); });
    program.run([&] { f2.Option3.user_click(); });
    program.run([&] { f2.Command1.press(); });
    program.run([&] { f2.xnext.press(); });
    auto& f3 = program.form<windows::Form3>();
    program.run([&] { f3.Command1.press(); });
    program.run([&] { f3.Command4.press(); });
    auto& f4 = program.form<windows::Form4>();
    program.run([&] { f4.Check2.user_click(); });
    program.run([&] {
        f4.tstart.set_text("0.1");
        f4.tend.set_text("3");
    });
    program.run([&] { f4.Command1.press(); });
    platform.file_answers = {(dir / "desktop.txt").string()};
    program.run([&] { f4.Command3.press(); });
    ASSERT_TRUE(platform.runtime_errors.empty());

    EXPECT_EQ(value_of(batch.out, "scale factor"), f4.xzarib.text());
    EXPECT_NE(f4.xzarib.text(), "1");
    const std::string desktop = slurp(dir / "desktop.txt");
    EXPECT_FALSE(desktop.empty());
    EXPECT_EQ(slurp(batchFile), desktop);
}

}  // namespace
}  // namespace tv::test
