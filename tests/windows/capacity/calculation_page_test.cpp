// Form9's last page: the sweep through the window, its colours, the results and the clipboard.
#include "capacity_fixture.h"

#include "windows/capacity/text_table.h"
#include "windows/road_reports.h"

namespace tv::test {
namespace {

TEST_F(CapacityTest, AFailingSweepKeepsTheRowsItWroteAndNextStaysOff) {
    windows::Form9& f = form9();
    // m = 0 takes the slope from row 1, where d is 0.
    run([&] { f.T4.set_text("0"); });
    sweep_hand_case();
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_FALSE(f.Command3.enabled());
    EXPECT_EQ(f.Re1.text(), "");
}

TEST_F(CapacityTest, TheReportsDiagramDrawsEverySeriesOfTheSweep) {
    sweep_hand_case();
    int curves = 0, dots = 0;
    for (const forms::Page& page : windows::capacity_report(program, {}))
        for (const forms::PageOp& op : page.ops) {
            curves += op.kind == forms::PageOp::Kind::Polyline;
            dots += op.kind == forms::PageOp::Kind::Dot;
        }
    // Demand, reduced demand, capacity and the bilinear form as lines, the sweep's points as dots.
    EXPECT_EQ(curves, 4);
    EXPECT_GT(dots, 0);
}

TEST_F(CapacityTest, TheClipboardStartsWithTheThirtyVisibleHeadings) {
    sweep_hand_case();
    windows::Form9& f = form9();
    run([&] { f.copy.choose(); });
    const std::string first = platform.clipboard.substr(0, platform.clipboard.find("\r\n"));
    EXPECT_EQ(first.rfind("\tTarget\tstep\t", 0), 0u);
    // Every row of the table, each line ended by CR LF.
    std::size_t lines = 0;
    for (std::size_t p = 0; (p = platform.clipboard.find("\r\n", p)) != std::string::npos; p += 2) ++lines;
    EXPECT_EQ(lines, 7u);

    run([&] { f.Fg3.set_selected_rows({4}); });
    run([&] { f.copy.choose(); });
    const std::string& c = platform.clipboard;
    const std::size_t second = c.find("\r\n") + 2;
    EXPECT_EQ(c.substr(second, 12), "\t4.8000\t4\t4.");  // row 4 alone after the headings
    EXPECT_EQ(c.find("\r\n", second) + 2, c.size());
}

TEST_F(CapacityTest, TheRightButtonOnTheTableShowsTheFileMenu) {
    windows::Form9& f = form9();
    std::vector<std::string> popped;
    f.PopupMenu = [&](forms::Menu& m) { popped.push_back(m.name()); };
    run([&] { f.Fg3.MouseUp(1, 0, 10, 10); });
    EXPECT_TRUE(popped.empty());
    run([&] { f.Fg3.MouseUp(2, 0, 10, 10); });
    EXPECT_EQ(popped, std::vector<std::string>{"menu_file"});
    EXPECT_EQ(f.menu_file.caption(), "File");
    EXPECT_EQ(f.copy.caption(), "Copy to Clipboard");
    EXPECT_FALSE(f.menu_file.visible());
}

}  // namespace
}  // namespace tv::test
