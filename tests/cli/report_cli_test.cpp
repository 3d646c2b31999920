// tremorvault-cli --report: each road's report on real data is a sound PDF (qpdf), with every
// font embedded (pdffonts), holding the values the run printed (pdftotext).
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>

#include "cli_run.h"

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
        dir = fs::temp_directory_path() / ("tv_report_cli_" + std::to_string(::getpid()));
        fs::create_directories(dir);
    }
    void TearDown() override { fs::remove_all(dir); }

    // Runs the command with --report and checks the file; gives its text.
    std::string report(std::vector<std::string> args, const std::string& size = "595.28 x 841.89") {
        const std::string pdf = (dir / "report.pdf").string();
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

    fs::path dir;
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
    EXPECT_EQ(run_cli({"capacity", "--paper", "a3", data + "/capacity/capacity_spectrum.txt"}).status, 2);
}

}  // namespace
}  // namespace tv::test
