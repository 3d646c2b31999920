// The printed page as composed for every front end, the road of a PDF to its file, and the
// report's pages.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "forms/app.h"
#include "forms/form.h"
#include "support/fake_platform.h"
#include "support/files.h"
#include "support/form_dump.h"
#include "support/page_dump.h"
#include "windows/printing/page_composer.h"
#include "windows/printing/printing.h"
#include "windows/printing/report_composer.h"

namespace tv::test {
namespace {

class Sheet : public forms::Form {
public:
    explicit Sheet(forms::App& app) : forms::Form(app, "Sheet", "Sheet") {
        plot.line(0, 0, 2000, 1000, 0x0000FF);
        plot.set_current_x(100);
        plot.set_current_y(200);
        plot.print("0.5");
    }
    forms::PictureBox& plot = picture("plot", 4000, 1000);
};

class PrintingTest : public ::testing::Test {
protected:
    PrintingTest() : app(platform) {}

    forms::Page page() {
        windows::PageContent content;
        content.title = "Sheet";
        content.picture = &app.form<Sheet>().plot;
        content.heading = "Diagram & Result";
        content.lines = {"SRA= 0.4676", "SRV= 0.5893"};
        return windows::compose_page(content, platform);
    }

    FakePlatform platform;
    forms::App app;
    TempDir scratch;
    const std::filesystem::path dir = scratch.path();
};

// The picture of 4000 x 1000 twips at 200 x 50 points at the margin, its drawing clipped inside,
// its red 0xBBGGRR ink as 0xRRGGBB, its text 10 points down; then a line's room, the heading bold
// in 12 points, the lines in 10 points, 14 apart.
TEST_F(PrintingTest, ThePictureStandsAtItsSizeThenTheHeadingAndTheLines) {
    expect_state(dump(page()), "page_picture_heading_lines");
}

// A window's image first, the picture below it after a line's room.
TEST_F(PrintingTest, AWindowsImageComesFirstWithThePictureBelowIt) {
    windows::PageContent content;
    content.window = &app.form<Sheet>();
    content.picture = &app.form<Sheet>().plot;
    expect_state(dump(windows::compose_page(content, platform)), "page_window_image");
}

TEST_F(PrintingTest, APdfThatCannotBeMadeOrWrittenLeavesTheFileAsItWas) {
    std::ofstream(dir / "report.pdf", std::ios::binary) << "earlier";
    platform.pdf_fails = true;
    platform.file_answers.push_back((dir / "report").string());
    windows::save_page_as_pdf(platform, page());
    EXPECT_EQ(slurp(dir / "report.pdf"), "earlier");
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0], (std::pair<int, std::string>{75, "Path/File access error"}));

    // Made whole, the file is replaced; nothing left beside it is the file writer's own test.
    platform.file_answers.push_back((dir / "report.pdf").string());
    windows::save_page_as_pdf(platform, page());
    EXPECT_EQ(slurp(dir / "report.pdf").rfind("%PDF", 0), 0u);
    EXPECT_EQ(platform.runtime_errors.size(), 1u);

    // A file that cannot be written is error 75 too.
    platform.file_answers.push_back((dir / "missing" / "report").string());
    windows::save_page_as_pdf(platform, page());
    ASSERT_EQ(platform.runtime_errors.size(), 2u);
    EXPECT_EQ(platform.runtime_errors[1].first, 75);
}

// The report's pages: the flow over pages, the footers, the paper and the plots' limits.
windows::ReportComposer composer(windows::Paper paper) {
    return windows::ReportComposer(paper, {"Road Report", "curve.txt", "2026-11-26", "1.2.3"},
                                   [](const std::string& s, const forms::PageFont& f) { return 0.5 * f.size * s.size(); });
}

// A hundred and twenty values flow over three letter pages, each numbered in its footer.
TEST(ReportComposerTest, ValuesFlowOverPagesEachNumberedInItsFooter) {
    windows::ReportComposer c = composer(windows::Paper::letter);
    c.heading("Results");
    for (int i = 0; i < 120; ++i) c.value("value " + std::to_string(i), std::to_string(i), "cm");
    expect_state(dump(c.finish()), "report_values_over_pages");
}

// A plot without points is left out (the title block's frame and three texts, the footer); a
// plot's lines are clipped to its frame, the point at 100 lying past it.
TEST(ReportComposerTest, PlotsAreClippedToTheirFrameAndLeftOutWithoutPoints) {
    windows::ReportComposer c = composer(windows::Paper::a4);
    c.plot({"empty", "x", "y", {{"none", 0, {}, {}, false}}});
    expect_state(dump(c.finish()), "report_plot_without_points");
    windows::ReportComposer d = composer(windows::Paper::a4);
    windows::ReportPlot p{"curve", "Sd (cm)", "Sa (g)", {{"demand", 0xFF, {0, 5, 100}, {1, 1, 0.1}, false}}};
    p.x_limit = 10;
    d.plot(p);
    expect_state(dump(d.finish()), "report_plot_clipped");
}

// Each case of a formula on a line of its own, below the formula's name.
TEST(ReportComposerTest, EachCaseOfAFormulaStandsOnALineOfItsOwn) {
    windows::ReportComposer c = composer(windows::Paper::a4);
    c.formula("C1, by the period", "C1 = 1 for Te >= 1 s;  C1 = 1 + (R - 1) / (a Te^2)");
    expect_state(dump(c.finish()), "report_formula");
}

}  // namespace
}  // namespace tv::test
