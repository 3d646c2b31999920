#include "windows/capacity/grid_table.h"

namespace tv::windows {

TextTable to_table(const forms::Grid& grid) {
    TextTable t(grid.rows(), grid.cols());
    for (int c = 0; c < grid.cols(); ++c) {
        t.set_col_hidden(c, grid.col_hidden(c));
        t.set_col_width(c, grid.col_width(c));
        t.set_col_alignment(c, grid.col_alignment(c));
    }
    for (int r = 0; r < grid.rows(); ++r) {
        for (int c = 0; c < grid.cols(); ++c) {
            t.set_text(r, c, grid.text(r, c));
            const int colour = grid.cell_back_color(r, c);
            if (colour != -1) t.set_cell_color(r, c, colour);
        }
    }
    return t;
}

void copy_to_grid(const TextTable& table, forms::Grid& grid) {
    // One refresh of the view for the whole copy.
    const bool redraw = grid.redraw();
    grid.set_redraw(false);
    grid.set_cols(table.cols());
    grid.set_rows(table.rows());
    for (int c = 0; c < table.cols(); ++c) {
        grid.set_col_hidden(c, table.col_hidden(c));
        if (table.col_width(c) != -1) grid.set_col_width(c, table.col_width(c));
        if (table.col_alignment(c) != -1) grid.set_col_alignment(c, table.col_alignment(c));
    }
    for (int r = 0; r < table.rows(); ++r) {
        for (int c = 0; c < table.cols(); ++c) {
            grid.set_text(r, c, table.text(r, c));
            const int colour = table.cell_color(r, c);
            if (grid.cell_back_color(r, c) != colour) grid.set_cell_back_color(r, c, colour);
        }
    }
    grid.set_redraw(redraw);
}

}  // namespace tv::windows
