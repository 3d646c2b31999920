// tremorvault-cli as a user runs it: --report gives each road's report on real data as a sound
// PDF (qpdf), with every font embedded (pdffonts), holding the values the run printed
// (pdftotext); --report-pdf gives the windows' printed pages; the manual page names every
// command and option.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

#include "cli_run.h"
#include "support/files.h"

namespace tv::test {
namespace {

namespace fs = std::filesystem;

// The standard output of a shell command, with its exit status.
std::string shell(const std::string& command, int& status) {
    std::string out;
    FILE* p = ::popen(command.c_str(), "r");
    if (p == nullptr) return out;
    char buffer[4096];
    for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, p)) > 0;) out.append(buffer, n);
    status = ::pclose(p);
    return out;
}

class ReportCliTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!fs::exists(TV_DATA_DIR)) GTEST_SKIP() << "the real input files are not at " << TV_DATA_DIR;
    }

    // Runs the command with --report and checks the file; gives its text.
    std::string report(std::vector<std::string> args, const std::string& size = "595.28 x 841.89") {
        const std::string pdf = dir.file("report.pdf");
        args.insert(args.begin() + 1, {"--report", pdf});
        const CliResult r = run_cli(args);
        EXPECT_EQ(r.status, 0) << r.err;
        printed = r.out;
        int status = -1;
        const std::string check = shell("qpdf --check '" + pdf + "' 2>&1", status);
        EXPECT_EQ(status, 0) << check;
        const std::string fonts = shell("pdffonts '" + pdf + "' | tail -n +3 | awk '{print $(NF-4)}'", status);
        EXPECT_FALSE(fonts.empty());
        EXPECT_EQ(fonts.find("no"), std::string::npos) << fonts;
        EXPECT_NE(shell("pdfinfo '" + pdf + "'", status).find(size), std::string::npos);
        return shell("pdftotext -layout '" + pdf + "' -", status);
    }
    // The value the run printed after "key: ".
    std::string value(const std::string& key) const {
        const std::size_t at = printed.find(key + ": ");
        if (at == std::string::npos) return "(" + key + " not printed)";
        const std::size_t from = at + key.size() + 2;
        return printed.substr(from, printed.find('\n', from) - from);
    }

    TempDir dir;
    std::string printed;
    const std::string data = TV_DATA_DIR;
};

TEST_F(ReportCliTest, GroundMotionReportHoldsTheRecordsAndTheScaleFactor) {
    const std::string records = data + "/records/";
    const std::string text =
        report({"spectra", "--compare", "--rule", "max", "--scale", "1,1.5", records + "chichi1999_tcu078_E.txt",
                records + "chichi1999_tcu078_N.txt", records + "manjil1990_abbar_L.txt", records + "manjil1990_abbar_T.txt"});
    for (const std::string& v : {value("peak X 2"), value("scale factor"), std::string("18004"),
                                 std::string("chichi1999_tcu078_N.txt"), std::string("Ground Motion Report")})
        EXPECT_NE(text.find(v), std::string::npos) << v;
}

TEST_F(ReportCliTest, CoefficientReportHoldsTheCoefficientsAndTheMethodsSideBySide) {
    const std::string text = report({"nsp", "--ti", "0.6", "--weight", "1500000", "--stories", "3", "--sa", "0.8",
                                     "--ec8", "1,C,0.35", data + "/pushover/PDcurve.xlsx"});
    for (const std::string& v : {value("X yield"), value("Y yield"), std::string("9.48"), std::string("Eurocode 8 N2"),
                                 std::string("Target displacement by method")})
        EXPECT_NE(text.find(v), std::string::npos) << v;
}

TEST_F(ReportCliTest, CapacityReportOnLetterHoldsBeffSraSrv) {
    const std::string text = report({"capacity", "--paper", "letter", "--scale", "0.35", "--weight", "1200000",
                                     "--alpha1", "0.8", "--pf-phi", "1.3", data + "/pushover/PDcurve_Xdir.xlsx"},
                                    "612 x 792");
    for (const char* key : {"target displacement", "SRA", "SRV", "Beff"})
        EXPECT_NE(text.find(value(key)), std::string::npos) << key;
}

// --report-pdf: the windows' printed pages in one PDF file, a page for each printed window, and
// a refused target named in the error. The printed values are the golden cases'.
const std::string kInputs = TV_SOURCE_DIR "/tests/golden/inputs/";

int pages_in(const std::filesystem::path& p) {
    const std::string pdf = slurp(p);
    EXPECT_EQ(pdf.rfind("%PDF-", 0), 0u);
    int n = 0;
    for (std::size_t at = pdf.find("/Type /Page"); at != std::string::npos; at = pdf.find("/Type /Page", at + 1))
        n += pdf.compare(at, 12, "/Type /Pages") != 0;
    return n;
}

TEST(ReportPdfCli, ThePrintedPagesGoToAPdfFile) {
    TempDir dir;
    const std::string curve = kInputs + "softening_curve.txt";
    CliResult r = run_cli({"coefficient", "--report-pdf", dir.file("one.pdf"), curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(pages_in(dir.file("one.pdf")), 1);
    r = run_cli({"coefficient", "--weight", "10000", "--stories", "3", "--sa", "0.5", "--report-pdf",
                 dir.file("two.pdf"), curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(pages_in(dir.file("two.pdf")), 2);
    r = run_cli({"capacity", "--report-pdf", dir.file("diagram.pdf"), kInputs + "smooth_capacity.txt"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(pages_in(dir.file("diagram.pdf")), 1);
    // Nothing is left beside the targets.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 3);

    r = run_cli({"coefficient", "--report-pdf", "/nonexistent/dir/r.pdf", curve});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("/nonexistent/dir/r.pdf"), std::string::npos);
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
