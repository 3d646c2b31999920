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

}  // namespace
}  // namespace tv::test
