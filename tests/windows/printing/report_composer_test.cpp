// The report's pages: the flow over pages, the footers, the paper and the plots' limits.
#include <gtest/gtest.h>

#include <string>

#include "windows/printing/report_composer.h"

namespace tv::test {
namespace {

using forms::PageOp;

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
        for (const PageOp& op : pages[i].ops) EXPECT_LE(op.y1, 792 - 56) << op.text;
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
    for (const PageOp& op : pages.front().ops) {
        if (op.kind != PageOp::Kind::Polyline) continue;
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
    for (const PageOp& op : pages.front().ops)
        if (op.kind == PageOp::Kind::Text) texts.push_back(op.text);
    ASSERT_GE(texts.size(), 3u);
    EXPECT_EQ(std::vector<std::string>(texts.end() - 4, texts.end() - 1),
              (std::vector<std::string>{"C1, by the period", "C1 = 1 for Te >= 1 s", "C1 = 1 + (R - 1) / (a Te^2)"}));
}

}  // namespace
}  // namespace tv::test
