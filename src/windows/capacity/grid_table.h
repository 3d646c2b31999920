#pragma once
// The capacity tables are worked on as plain tables of text cells; the windows keep grids. These
// copy one into the other, so that the work sees what the grid shows and the grid shows what the
// work left, also after a failure.
#include <type_traits>
#include <utility>

#include "windows/capacity/text_table.h"
#include "forms/grid.h"

namespace tv::windows {

/// The grid's texts, size, cell colours, hidden columns, widths and alignment as a table.
TextTable to_table(const forms::Grid& grid);

/// Writes the table into the grid: size, texts, cell colours (a cell without a colour in the
/// table goes back to the default, -1), hidden columns, and the widths and alignments that the
/// table sets (-1 there leaves the grid's own). Hidden rows and selected rows of the grid stay.
/// The view is refreshed once at the end when the grid was redrawing.
void copy_to_grid(const TextTable& table, forms::Grid& grid);

/// Runs `work(table)` on a copy of the grid and copies the table back, also when `work`
/// throws; the failure then goes on to the caller.
template <class Work>
decltype(auto) with_table(forms::Grid& grid, Work&& work) {
    TextTable table = to_table(grid);
    try {
        if constexpr (std::is_void_v<decltype(work(table))>) {
            std::forward<Work>(work)(table);
            copy_to_grid(table, grid);
        } else {
            auto result = std::forward<Work>(work)(table);
            copy_to_grid(table, grid);
            return result;
        }
    } catch (...) {
        copy_to_grid(table, grid);
        throw;
    }
}

}  // namespace tv::windows
