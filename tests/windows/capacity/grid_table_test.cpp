// The copy between a window's grid and the computations' table, both ways.
#include "windows/capacity/grid_table.h"

#include <gtest/gtest.h>

#include "forms/app.h"
#include "support/fake_platform.h"
#include "text/runtime_error.h"

namespace tv::windows {
namespace {

class GridTableTest : public ::testing::Test {
protected:
    GridTableTest() : app(platform), form(app, "Form", "Form") {}
    test::FakePlatform platform;
    forms::App app;
    forms::Form form;
    forms::Grid& grid = form.grid("Fg3", 3, 4);
};

TEST_F(GridTableTest, ToTableTakesTextsLayoutAndColours) {
    grid.set_text(0, 1, "Target");
    grid.set_text(2, 3, " 0.25");
    grid.set_col_hidden(0, true);
    grid.set_col_width(1, 1000);
    grid.set_col_alignment(2, windows::kLeftCentre);
    grid.set_cell_back_color(2, 1, windows::kRed);
    const windows::TextTable t = to_table(grid);
    EXPECT_EQ(t.rows(), 3);
    EXPECT_EQ(t.cols(), 4);
    EXPECT_EQ(t.text(0, 1), "Target");
    EXPECT_EQ(t.text(2, 3), " 0.25");  // the leading blank is part of the text
    EXPECT_TRUE(t.col_hidden(0));
    EXPECT_FALSE(t.col_hidden(1));
    EXPECT_EQ(t.col_width(1), 1000);
    EXPECT_EQ(t.col_alignment(2), windows::kLeftCentre);
    EXPECT_EQ(t.cell_color(2, 1), windows::kRed);
    EXPECT_EQ(t.cell_colors().size(), 1u);
}

TEST_F(GridTableTest, CopyToGridResizesAndResetsColoursTheTableDropped) {
    grid.set_cell_back_color(1, 1, windows::kBlue);
    grid.set_cell_back_color(2, 2, windows::kRed);
    grid.set_col_width(3, 700);
    windows::TextTable t = to_table(grid);
    t.clear();  // drops the colours, as the sweep's clearing does
    t.set_rows(5);
    t.set_text(4, 0, "x");
    t.set_cell_color(4, 2, windows::kBlue);
    t.set_col_hidden(2, true);
    copy_to_grid(t, grid);
    EXPECT_EQ(grid.rows(), 5);
    EXPECT_EQ(grid.text(4, 0), "x");
    EXPECT_EQ(grid.cell_back_color(1, 1), -1);
    EXPECT_EQ(grid.cell_back_color(2, 2), -1);
    EXPECT_EQ(grid.cell_back_color(4, 2), windows::kBlue);
    EXPECT_TRUE(grid.col_hidden(2));
    EXPECT_EQ(grid.col_width(3), 700);
}

TEST_F(GridTableTest, TheCopyReachesTheViewAsOneRefresh) {
    int updates = 0;
    grid.changed = [&] { ++updates; };
    windows::TextTable t(40, 4);
    for (int r = 1; r < 40; ++r) t.set_text(r, 1, std::to_string(r));
    copy_to_grid(t, grid);
    EXPECT_EQ(updates, 1);
}

TEST_F(GridTableTest, ATableWithoutWidthsLeavesTheGridsAndRedrawComesBack) {
    grid.set_col_width(0, 500);
    grid.set_col_alignment(0, 4);
    windows::TextTable t(2, 4);
    copy_to_grid(t, grid);
    EXPECT_EQ(grid.col_width(0), 500);
    EXPECT_EQ(grid.col_alignment(0), 4);
    EXPECT_TRUE(grid.redraw());
    grid.set_redraw(false);
    copy_to_grid(t, grid);
    EXPECT_FALSE(grid.redraw());  // a suspended grid stays suspended
}

TEST_F(GridTableTest, AFailureInsideCopiesWhatTheTableHoldsBackAndGoesOn) {
    int caught = 0;
    try {
        with_table(grid, [](windows::TextTable& t) {
            t.set_text(1, 1, "written before the failure");
            t.text(9, 0);  // beyond the table
        });
    } catch (const text::RuntimeError& e) {
        caught = e.number();
    }
    EXPECT_EQ(caught, text::kSubscript);
    EXPECT_EQ(grid.text(1, 1), "written before the failure");
    EXPECT_EQ(with_table(grid, [](windows::TextTable& t) { return t.rows(); }), 3);
}

}  // namespace
}  // namespace tv::windows
