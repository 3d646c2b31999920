// tremorvault-cli coefficient: the pushover road in batch, on the softening curve worked by hand
// in the window tests (yield point (1.99, 2855.7214), Te = 1.022).
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "cli_run.h"
#include "support/fake_platform.h"

namespace tv::test {
namespace {

class CoefficientCliTest : public ::testing::Test {
protected:
    CoefficientCliTest() {
        dir = std::filesystem::temp_directory_path() /
              ("tv_coefficient_cli_" + std::to_string(::getpid()) + "_" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(dir);
        curve = write("curve.txt",
                      "Step  Displacement  BaseForce  Hinges\n"
                      " 0  0  0  0\n 1  1  1500  0\n 2  2  2600  0\n 3  3  3000  0\n 4  5  3200  0\n 5  8  3300  0\n");
    }
    ~CoefficientCliTest() override { std::filesystem::remove_all(dir); }
    std::string write(const std::string& name, const std::string& content) {
        std::ofstream(dir / name, std::ios::binary) << content;
        return (dir / name).string();
    }
    std::filesystem::path dir;
    std::string curve;
};

const std::string kYieldLines =
    "Ki: 1500\n"
    "X yield: 1.9900\n"
    "Y yield: 2855.7214\n"
    "pushover area: 21550.000\n"
    "collision area: 21339.386\n"
    "collision point: 1.194 , 1713.433\n"
    "alfa1: 0.05\n"
    "K-effective: 1435.036\n"
    "T-effective: 1.022\n";

TEST_F(CoefficientCliTest, TheAutomaticSearchPrintsTheYieldResults) {
    CliResult r = run_cli({"coefficient", curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, kYieldLines);
    EXPECT_EQ(r.err, "");
}

TEST_F(CoefficientCliTest, RFactorAndTargetDisplacementFollowInOrder) {
    CliResult r = run_cli({"coefficient", "--vs", "2000", "--weight", "10000", "--stories", "3", "--sa", "0.5",
                           "--use-alpha", curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, kYieldLines +
                         "Rs: 1.4\nRm1: 2.7\nRm2: 5\nRu: 3.9\nmiu: 4\n"
                         "C0: 1.2\nC1: 1\nC2: 1\nC3: 1\nR: 1.58\nAlpha: 0.05\nwarning: \nSa: 0.5\nTs: \n"
                         "target displacement: 15.57\nRmax: 12.87\n");
}

TEST_F(CoefficientCliTest, TheColumnsSoilAndATypedC3) {
    // 7 stories in the third C0 column: 1.44; Cm 0.8; R = 0.8 x 0.5 / 0.285572 = 1.4007;
    // d = 1.44 x 0.5 x 981 x 1.022^2 / (4 x 3.1416^2) = 18.687, Rmax = d / 1.99 = 9.39.
    CliResult r = run_cli({"coefficient", "--weight", "10000", "--stories", "7", "--c0-column", "3", "--cm-column",
                           "3", "--soil", "I", "--sa", "0.5", "--c3", "1.5", curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, kYieldLines +
                         "C0: 1.44\nC1: 1\nC2: 1\nC3: 1.5\nR: 1.4\nAlpha: 0.05\nwarning: \nSa: 0.5\nTs: \n"
                         "target displacement: 18.69\nRmax: 9.39\n");
}

TEST_F(CoefficientCliTest, ATypedYieldPointAndPeriod) {
    CliResult r = run_cli({"coefficient", "--yield", "2,3000", "--ti", "0.5", curve});
    EXPECT_EQ(r.status, 0) << r.err;
    // No search ran: the pushover area and the crossing stay as the window left them.
    EXPECT_EQ(r.out,
              "Ki: 1500\nX yield: 2\nY yield: 3000\npushover area: \ncollision area: 21900.000\n"
              "collision point: 0 , 0\nalfa1: 1\nK-effective: 1500.000\nT-effective: 0.500\n");
}

TEST_F(CoefficientCliTest, RatioAndToleranceReachTheScan) {
    // Ratio 0.7: the scan passes at K = 1368, crossing the second segment at x = 400 / 268; the
    // yield point is that crossing over 0.7, with an area of 21349.25 against 21550.
    CliResult r = run_cli({"coefficient", "--ratio", "0.7", curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("X yield: 2.1322\nY yield: 2916.8443\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("collision point: 1.493 , 2041.791\n"), std::string::npos) << r.out;
    // A looser tolerance stops the scan sooner: K = 1493, area 20531.64 is within 5 %.
    r = run_cli({"coefficient", "--tolerance", "0.05", curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("X yield: 1.6964\nY yield: 2532.6548\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("collision point: 1.018 , 1519.593\n"), std::string::npos) << r.out;
    // A tolerance of 0 asks for an exact match, which no slope gives.
    r = run_cli({"coefficient", "--tolerance", "0", curve});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "Error: Equation Could Not Be Solved !\n");
}

TEST_F(CoefficientCliTest, MissingFormEightInputsAreOnlyAMessage) {
    CliResult r = run_cli({"coefficient", "--weight", "10000", curve});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.err, ": Pleas Input W ,C0 , Cm, dy, Vy\n");
    EXPECT_NE(r.out.find("\ntarget displacement: \n"), std::string::npos);
}

TEST_F(CoefficientCliTest, CheckedFailuresEndWithStatusOne) {
    CliResult r = run_cli({"coefficient", "--step", "1", curve});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "Error: Equation Could Not Be Solved !\n");
    EXPECT_EQ(r.out, "");

    std::string tons = write("tons.txt", "Displacement\n 0 0 0 x\n 1 1 1.5 x\n 2 2 2.6 x\n 3 8 3.3 x\n");
    r = run_cli({"coefficient", tons});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "Error: Equation Could Not Be Solved !\nError: Error in determining X & Y Yeld !\n");

    r = run_cli({"coefficient", "--vs", "0", curve});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, kYieldLines);
    EXPECT_EQ(r.err, "Error: Error in Inputs!\n");

    r = run_cli({"coefficient", "--step", "9", curve});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("no step 9"), std::string::npos);

    // Any case of .xlsx is a spreadsheet, and this one is not.
    std::string fake = write("listing.XLSX", "Displacement\n 0 0 0 x\n");
    r = run_cli({"coefficient", fake});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "Error: Error Reading Pushover file!\n");

    r = run_cli({"coefficient", (dir / "none.txt").string()});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("none.txt"), std::string::npos);
}

TEST_F(CoefficientCliTest, APointNumberOutsideTheCurveIsARunTimeError) {
    CliResult r = run_cli({"coefficient", "--ki-point", "9", curve});
    EXPECT_EQ(r.status, 3);
    EXPECT_EQ(r.err, "run-time error: Subscript out of range\n");
    // Point 0 is the origin: 0 / 0.
    r = run_cli({"coefficient", "--ki-point", "0", curve});
    EXPECT_EQ(r.status, 3);
    EXPECT_EQ(r.err, "run-time error: Overflow\n");
}

TEST_F(CoefficientCliTest, SaFromTheCodeSpectrumAndUsageErrors) {
    CliResult r = run_cli({"coefficient", "--sa-code", "II,high", "--weight", "1", curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("\nTs: 0.5000\n"), std::string::npos) << r.out;  // soil II
    const auto sa = r.out.find("\nSa: ");
    ASSERT_NE(sa, std::string::npos);
    EXPECT_EQ(r.out.find('.', sa) - sa, 6u);  // four decimals
    r = run_cli({"coefficient", "--sa-code", "V,high", "--weight", "1", curve});
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.out, "");

    EXPECT_EQ(run_cli({"coefficient"}).status, 2);
    EXPECT_EQ(run_cli({"coefficient", curve, curve}).status, 2);
    r = run_cli({"coefficient", "--soil", "III", curve});
    EXPECT_EQ(r.status, 2);
    EXPECT_NE(r.err.find("--soil takes one of I II III-IV"), std::string::npos);
    EXPECT_EQ(run_cli({"coefficient", "--c0-column", "4", curve}).status, 2);
    EXPECT_EQ(run_cli({"coefficient", "--yield", "2", curve}).status, 2);
    EXPECT_EQ(run_cli({"coefficient", "--bogus", curve}).status, 2);
    r = run_cli({"coefficient", "--help"});
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("--report-pdf"), std::string::npos);
}

TEST_F(CoefficientCliTest, ThePrintedPagesGoToAPdfFile) {
    auto pages_in = [](const std::filesystem::path& p) {
        std::ifstream in(p, std::ios::binary);
        std::string pdf((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        EXPECT_EQ(pdf.rfind("%PDF-", 0), 0u);
        int n = 0;
        for (std::size_t at = pdf.find("/Type /Page"); at != std::string::npos; at = pdf.find("/Type /Page", at + 1))
            if (pdf.compare(at, 12, "/Type /Pages") != 0) ++n;
        return n;
    };
    CliResult r = run_cli({"coefficient", "--report-pdf", (dir / "one.pdf").string(), curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, kYieldLines);
    EXPECT_EQ(pages_in(dir / "one.pdf"), 1);
    r = run_cli({"coefficient", "--weight", "10000", "--stories", "3", "--sa", "0.5", "--report-pdf",
                 (dir / "two.pdf").string(), curve});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(pages_in(dir / "two.pdf"), 2);
    // Nothing is left beside the targets.
    int files = 0;
    for (const auto& e : std::filesystem::directory_iterator(dir)) files += e.path().extension() == ".pdf" ? 1 : 0;
    EXPECT_EQ(files, 2);

    r = run_cli({"coefficient", "--report-pdf", "/nonexistent/dir/r.pdf", curve});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("/nonexistent/dir/r.pdf"), std::string::npos);
}

// An export the program's own readers would misread is imported: the questions a window asks
// are answered by options, and without them the run stops naming what to choose.
TEST_F(CoefficientCliTest, AnExportAsksForItsCaseAndColumnsByOptions) {
    std::string cases = write("cases.csv",
                              "Case;Step;Displacement;Base Force\n"
                              "PUSH-X;0;0;0\nPUSH-X;1;1;1500\nPUSH-X;2;2;2600\nPUSH-X;3;3;3000\n"
                              "PUSH-X;4;5;3200\nPUSH-X;5;8;3300\nPUSH-Y;0;0;0\nPUSH-Y;1;1;900\n");
    CliResult r = run_cli({"coefficient", cases});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "tremorvault-cli coefficient: " + cases + ": several load cases (PUSH-X, PUSH-Y); choose one with --case\n");
    r = run_cli({"coefficient", "--case", "PUSH-X", "--system", "kgf-cm", cases});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "curve: table with headings (text), 6 points, columns 3 and 4\ncase: PUSH-X\n"
                     "units: length unit not stated: taken as cm as it stands, force unit not stated: taken as kgf as it stands\n" +
                         kYieldLines);

    std::string unnamed = write("unnamed.txt", "a b c\n0 0 0\n1 1 1500\n");
    r = run_cli({"coefficient", unnamed});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("1 \"a\", 2 \"b\", 3 \"c\"); choose them with --columns"), std::string::npos) << r.err;
    EXPECT_EQ(run_cli({"coefficient", "--columns", "2", unnamed}).status, 2);
    EXPECT_EQ(run_cli({"coefficient", "--shift", "maybe", unnamed}).status, 2);
}

}  // namespace
}  // namespace tv::test
