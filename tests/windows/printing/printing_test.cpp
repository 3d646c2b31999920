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

TEST_F(PrintingTest, ThePictureStandsAtItsSizeThenTheHeadingAndTheLines) {
    const forms::Page p = page();
    // 4000 x 1000 twips: 200 x 50 points at the margin, its drawing kept inside.
    const forms::PageRect area{42, 42, 200, 50};
    const forms::PageOp* line = nullptr;
    for (const forms::PageOp& op : p.ops)
        if (op.kind == forms::PageOp::Kind::Line) line = &op;
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->clip, area);
    EXPECT_DOUBLE_EQ(line->x2, 42 + 100.0);
    EXPECT_DOUBLE_EQ(line->y2, 42 + 50.0);
    EXPECT_EQ(line->colour, 0xFF0000);  // the picture's 0xBBGGRR red

    std::vector<const forms::PageOp*> texts;
    for (const forms::PageOp& op : p.ops)
        if (op.kind == forms::PageOp::Kind::Text) texts.push_back(&op);
    ASSERT_EQ(texts.size(), 4u);
    EXPECT_EQ(texts[0]->text, "0.5");
    EXPECT_DOUBLE_EQ(texts[0]->y1, 42 + 10.0);
    EXPECT_EQ(texts[0]->clip, area);
    // A line's room below the picture; the heading bold and larger, then 14 points a line.
    EXPECT_DOUBLE_EQ(texts[1]->y1, 42 + 50 + 14.0);
    EXPECT_TRUE(texts[1]->font.bold);
    EXPECT_EQ(texts[1]->font.size, 12);
    EXPECT_TRUE(texts[1]->clip.empty());
    EXPECT_DOUBLE_EQ(texts[2]->y1, texts[1]->y1 + 21);
    EXPECT_DOUBLE_EQ(texts[3]->y1, texts[2]->y1 + 14);
    EXPECT_EQ(texts[3]->font.size, 10);
    EXPECT_DOUBLE_EQ(texts[3]->x1, 42);
}

TEST_F(PrintingTest, AWindowsImageComesFirstWithThePictureBelowIt) {
    windows::PageContent content;
    content.window = &app.form<Sheet>();
    content.picture = &app.form<Sheet>().plot;
    const forms::Page p = windows::compose_page(content, platform);
    ASSERT_FALSE(p.ops.empty());
    const forms::PageRect picture = p.ops.back().clip;
    EXPECT_EQ(picture.w, 200);
    EXPECT_GT(picture.y, 42 + 14);  // below the image and a line's room
}

TEST_F(PrintingTest, APdfThatCannotBeMadeLeavesTheFileAsItWas) {
    std::ofstream(dir / "report.pdf", std::ios::binary) << "earlier";
    platform.pdf_fails = true;
    platform.file_answers.push_back((dir / "report").string());
    windows::save_page_as_pdf(platform, page());
    EXPECT_EQ(slurp(dir / "report.pdf"), "earlier");
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0], (std::pair<int, std::string>{75, "Path/File access error"}));

    // Made whole, the file is replaced and nothing is left beside it.
    platform.file_answers.push_back((dir / "report.pdf").string());
    windows::save_page_as_pdf(platform, page());
    EXPECT_EQ(slurp(dir / "report.pdf").rfind("%PDF", 0), 0u);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir), std::filesystem::directory_iterator()), 1);
    EXPECT_EQ(platform.runtime_errors.size(), 1u);
}

TEST_F(PrintingTest, AFileThatCannotBeWrittenIsError75) {
    platform.file_answers.push_back((dir / "missing" / "report").string());
    windows::save_page_as_pdf(platform, page());
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].first, 75);
    EXPECT_FALSE(std::filesystem::exists(dir / "missing"));
}

// The report's pages: the flow over pages, the footers, the paper and the plots' limits.
windows::ReportComposer composer(windows::Paper paper) {
    return windows::ReportComposer(paper, {"Road Report", "curve.txt", "2026-11-26", "1.2.3"},
                                   [](const std::string& s, const forms::PageFont& f) { return 0.5 * f.size * s.size(); });
}

TEST(ReportComposerTest, ValuesFlowOverPagesEachNumberedInItsFooter) {
    windows::ReportComposer c = composer(windows::Paper::letter);
    c.heading("Results");
    for (int i = 0; i < 120; ++i) c.value("value " + std::to_string(i), std::to_string(i), "cm");
    const std::vector<forms::Page> pages = c.finish();
    ASSERT_EQ(pages.size(), 3u);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        EXPECT_EQ(pages[i].width, 612);
        EXPECT_EQ(pages[i].height, 792);
        EXPECT_EQ(pages[i].ops.back().text, "Road Report  \u00B7  page " + std::to_string(i + 1) + " of 3");
        for (const forms::PageOp& op : pages[i].ops) EXPECT_LE(op.y1, 792 - 56) << op.text;
    }
    EXPECT_EQ(pages[0].ops[1].text, "Road Report");
}

TEST(ReportComposerTest, PlotsAreClippedToTheirFrameAndLeftOutWithoutPoints) {
    windows::ReportComposer c = composer(windows::Paper::a4);
    c.plot({"empty", "x", "y", {{"none", 0, {}, {}, false}}});
    const std::size_t before = c.finish().front().ops.size();
    EXPECT_EQ(before, 5u);  // the title block's frame and three texts, the footer

    windows::ReportComposer d = composer(windows::Paper::a4);
    windows::ReportPlot p{"curve", "Sd (cm)", "Sa (g)", {{"demand", 0xFF, {0, 5, 100}, {1, 1, 0.1}, false}}};
    p.x_limit = 10;
    d.plot(p);
    const std::vector<forms::Page> pages = d.finish();
    int polylines = 0;
    for (const forms::PageOp& op : pages.front().ops) {
        if (op.kind != forms::PageOp::Kind::Polyline) continue;
        ++polylines;
        EXPECT_EQ(op.points.size(), 6u);
        EXPECT_FALSE(op.clip.empty());
        EXPECT_GT(op.points[4], op.clip.x + op.clip.w);  // the point at 100 lies past the frame
    }
    EXPECT_EQ(polylines, 1);
}

TEST(ReportComposerTest, EachCaseOfAFormulaStandsOnALineOfItsOwn) {
    windows::ReportComposer c = composer(windows::Paper::a4);
    c.formula("C1, by the period", "C1 = 1 for Te >= 1 s;  C1 = 1 + (R - 1) / (a Te^2)");
    const std::vector<forms::Page> pages = c.finish();
    std::vector<std::string> texts;
    for (const forms::PageOp& op : pages.front().ops)
        if (op.kind == forms::PageOp::Kind::Text) texts.push_back(op.text);
    ASSERT_GE(texts.size(), 3u);
    EXPECT_EQ(std::vector<std::string>(texts.end() - 4, texts.end() - 1),
              (std::vector<std::string>{"C1, by the period", "C1 = 1 for Te >= 1 s", "C1 = 1 + (R - 1) / (a Te^2)"}));
}

}  // namespace
}  // namespace tv::test
