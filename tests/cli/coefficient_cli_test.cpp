// --report-pdf: the windows' printed pages in one PDF file, a page for each printed window, and
// a refused target named in the error. The printed values are the golden cases'.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli_run.h"
#include "support/files.h"

namespace tv::test {
namespace {

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

}  // namespace
}  // namespace tv::test
