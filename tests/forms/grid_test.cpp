// The table of text cells: sizes, bounds, hidden rows, selection, the current cell and redraw.
#include "forms/grid.h"

#include <gtest/gtest.h>

#include "forms/app.h"
#include "forms/form.h"
#include "support/fake_platform.h"
#include "text/runtime_error.h"
#include "support/errors.h"

namespace tv::forms {
namespace {

class TableWindow : public Form {
public:
    explicit TableWindow(App& app) : Form(app, "TableWindow", "Table") {
        Fg.RowColChange = [this] { ++row_col_changes; };
        Fg.changed = [this] { ++view_updates; };
    }
    Grid& Fg = grid("Fg", 3, 2);
    int row_col_changes = 0;
    int view_updates = 0;
};

using tv::test::error_of;

class GridTest : public ::testing::Test {
protected:
    test::FakePlatform platform;
    App app{platform};
    TableWindow& w = app.form<TableWindow>();
    Grid& g = w.Fg;
};

TEST_F(GridTest, StartsEmptyWithTheCurrentRowUnderTheHeading) {
    EXPECT_EQ(g.rows(), 3);
    EXPECT_EQ(g.cols(), 2);
    EXPECT_EQ(g.text(2, 1), "");
    EXPECT_EQ(g.row(), 1);
    EXPECT_EQ(g.col(), 0);
    EXPECT_TRUE(g.redraw());
}

TEST_F(GridTest, ResizeKeepsTheCellsThatFit) {
    g.set_text(0, 0, "Step");
    g.set_text(1, 1, "0.25");
    g.set_text(2, 1, "0.5");
    g.set_cols(4);
    g.set_rows(5);
    EXPECT_EQ(g.text(0, 0), "Step");
    EXPECT_EQ(g.text(1, 1), "0.25");
    EXPECT_EQ(g.text(2, 1), "0.5");
    EXPECT_EQ(g.text(4, 3), "");
    EXPECT_EQ(g.text(1, 2), "");
    g.set_rows(2);
    g.set_cols(1);
    EXPECT_EQ(g.text(0, 0), "Step");
    EXPECT_EQ(error_of([&] { g.text(1, 1); }), text::kSubscript);
    g.set_rows(3);
    g.set_cols(2);
    EXPECT_EQ(g.text(2, 1), "");  // what was cut off does not come back
    EXPECT_EQ(g.text(1, 1), "");
}

TEST_F(GridTest, OutOfRangeRaisesSubscript) {
    EXPECT_EQ(error_of([&] { g.text(3, 0); }), text::kSubscript);
    EXPECT_EQ(error_of([&] { g.text(0, 2); }), text::kSubscript);
    EXPECT_EQ(error_of([&] { g.text(-1, 0); }), text::kSubscript);
    EXPECT_EQ(error_of([&] { g.set_text(0, -1, "x"); }), text::kSubscript);
    EXPECT_EQ(error_of([&] { g.set_col_width(2, 900); }), text::kSubscript);
    EXPECT_EQ(error_of([&] { g.set_row_hidden(3, true); }), text::kSubscript);
    EXPECT_EQ(error_of([&] { g.set_row(3); }), text::kSubscript);
    EXPECT_EQ(error_of([&] { g.set_col(-1); }), text::kSubscript);
    EXPECT_EQ(error_of([&] { g.set_cell_back_color(9, 0, 0xFF); }), text::kSubscript);
    EXPECT_EQ(error_of([&] { g.set_rows(-1); }), text::kSubscript);
}

TEST_F(GridTest, ClearEmptiesEveryCellKeepingTheSize) {
    g.set_text(0, 0, "T");
    g.set_text(2, 1, "9");
    g.clear();
    EXPECT_EQ(g.text(0, 0), "");
    EXPECT_EQ(g.text(2, 1), "");
    EXPECT_EQ(g.rows(), 3);
}

TEST_F(GridTest, HiddenRowsFollowTheRowCount) {
    g.set_row_hidden(2, true);
    EXPECT_TRUE(g.row_hidden(2));
    EXPECT_FALSE(g.row_hidden(1));
    g.set_rows(6);
    EXPECT_TRUE(g.row_hidden(2));
    EXPECT_FALSE(g.row_hidden(5));
    g.set_rows(2);
    g.set_rows(3);
    EXPECT_FALSE(g.row_hidden(2));
}

TEST_F(GridTest, ColumnsKeepWidthAlignmentAndHiddenFlag) {
    EXPECT_EQ(g.col_width(1), -1);
    g.set_col_width(1, 1200);
    g.set_col_alignment(1, 4);
    g.set_col_hidden(0, true);
    g.set_cols(3);
    EXPECT_EQ(g.col_width(1), 1200);
    EXPECT_EQ(g.col_alignment(1), 4);
    EXPECT_TRUE(g.col_hidden(0));
    EXPECT_EQ(g.col_width(2), -1);
}

TEST_F(GridTest, SelectionDropsRowsThatAreCutOff) {
    g.set_rows(10);
    g.set_selected_rows({2, 5, 9});
    EXPECT_EQ(g.selected_row_count(), 3);
    g.set_rows(6);
    EXPECT_EQ(g.selected_rows(), (std::set<int>{2, 5}));
}

TEST_F(GridTest, BackColoursDropWithTheirRows) {
    g.set_cell_back_color(2, 1, 0x00FF00);
    EXPECT_EQ(g.cell_back_color(2, 1), 0x00FF00);
    EXPECT_EQ(g.cell_back_color(1, 1), -1);
    g.set_rows(2);
    g.set_rows(3);
    EXPECT_EQ(g.cell_back_color(2, 1), -1);
}

TEST_F(GridTest, RowColChangeFiresOnlyWhenTheCellMoves) {
    g.set_row(1);
    EXPECT_EQ(w.row_col_changes, 0);
    g.set_row(2);
    g.set_col(1);
    g.set_col(1);
    EXPECT_EQ(w.row_col_changes, 2);
    EXPECT_EQ(g.row(), 2);
    EXPECT_EQ(g.col(), 1);
}

TEST_F(GridTest, CurrentCellStaysInsideWhenTheTableShrinks) {
    g.set_rows(10);
    g.set_row(9);
    g.set_rows(4);
    EXPECT_EQ(g.row(), 3);
    g.set_rows(0);
    EXPECT_EQ(g.row(), 0);
}

TEST_F(GridTest, RedrawOffHoldsTheViewAndOnNotifiesOnce) {
    const auto layout = g.layout_revision();
    w.view_updates = 0;
    g.set_redraw(false);
    g.set_rows(50);
    for (int r = 1; r < 50; ++r) g.set_text(r, 0, std::to_string(r));
    g.set_row_hidden(3, true);
    g.set_row(7);  // events still fire with redraw off
    EXPECT_EQ(w.view_updates, 0);
    EXPECT_EQ(w.row_col_changes, 1);
    g.set_redraw(true);
    EXPECT_EQ(w.view_updates, 1);
    EXPECT_GT(g.layout_revision(), layout);
    g.set_redraw(true);
    EXPECT_EQ(w.view_updates, 1);
    g.set_text(1, 1, "x");
    EXPECT_EQ(w.view_updates, 2);
    g.set_text(1, 1, "x");  // the same text: nothing to redraw
    EXPECT_EQ(w.view_updates, 2);
}

TEST_F(GridTest, ColumnWidthsAndHiddenFlagsCountAsLayout) {
    auto before = g.layout_revision();
    g.set_text(1, 1, "cell");
    EXPECT_EQ(g.layout_revision(), before);
    g.set_col_width(0, 500);
    EXPECT_GT(g.layout_revision(), before);
    before = g.layout_revision();
    g.set_row_hidden(1, true);
    EXPECT_GT(g.layout_revision(), before);
}

TEST_F(GridTest, CopiesAsTabSeparatedTextWithItsHeading) {
    g.set_rows(4);
    g.set_cols(3);
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 3; ++c) g.set_text(r, c, std::string(1, static_cast<char>('a' + r)) + std::to_string(c));
    g.set_text(2, 0, "c\t0");
    // The whole table, but what the user does not see.
    g.set_row_hidden(3, true);
    g.set_col_width(1, 0);
    EXPECT_EQ(tab_separated(g), "a0\ta2\nb0\tb2\nc 0\tc2\n");
    // A selection keeps the heading row above it.
    g.set_col_width(1, -1);
    EXPECT_EQ(tab_separated(g, {2}, {1, 2}), "a1\ta2\nc1\tc2\n");
    // A table without a heading row.
    g.set_fixed_rows(0);
    EXPECT_EQ(tab_separated(g, {0}), "a0\ta1\ta2\n");
}

TEST(GridSmall, TablesOfOneOrNoRowHaveTheirCurrentRowAtZero) {
    test::FakePlatform platform;
    App app{platform};
    class Small : public Form {
    public:
        explicit Small(App& a) : Form(a, "Small", "") {}
        Grid& A = grid("A", 1, 3);
        Grid& B = grid("B", 0, 0);
    };
    Small& s = app.form<Small>();
    EXPECT_EQ(s.A.row(), 0);
    EXPECT_EQ(s.B.row(), 0);
    EXPECT_EQ(s.B.col(), 0);
    s.B.set_cols(2);
    s.B.set_rows(3);
    EXPECT_EQ(s.B.text(2, 1), "");
}

}  // namespace
}  // namespace tv::forms
