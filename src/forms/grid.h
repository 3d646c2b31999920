#pragma once
// A table of text cells (VSFlexGrid): the cells are data that later steps read back.
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "forms/control.h"

namespace tv::forms {

class Grid : public Control {
public:
    Grid(Form& f, std::string name, int rows, int cols, Control* container = nullptr);

    int rows() const { return rows_; }
    int cols() const { return cols_; }
    /// Resizes keeping the cells that fit; new cells are empty. A negative count raises 9.
    void set_rows(int n);
    void set_cols(int n);
    int fixed_rows() const { return fixed_rows_; }
    void set_fixed_rows(int n) { fixed_rows_ = n; notify_if_redraw(); }

    /// TextMatrix: an index outside the table raises RuntimeError 9.
    const std::string& text(int row, int col) const;
    void set_text(int row, int col, std::string text);
    /// Empties every cell, keeping rows and columns.
    void clear();

    int col_width(int col) const;
    void set_col_width(int col, int twips);
    /// Alignment code of the old table (1 = left centre, 4 = centre centre, ...).
    int col_alignment(int col) const;
    void set_col_alignment(int col, int code);
    bool row_hidden(int row) const;
    void set_row_hidden(int row, bool hidden);
    bool col_hidden(int col) const;
    void set_col_hidden(int col, bool hidden);

    /// Cell background colour as 0xBBGGRR; -1 is the default.
    int cell_back_color(int row, int col) const;
    void set_cell_back_color(int row, int col, int color);
    /// The tip a cell shows under the pointer; empty: the cell's text. Cleared with the texts.
    std::string cell_tool_tip(int row, int col) const;
    void set_cell_tool_tip(int row, int col, std::string tip);

    /// Current row (Row); setting it fires RowColChange when it changes.
    int row() const { return row_; }
    void set_row(int r);
    int col() const { return col_; }
    void set_col(int c);
    Event RowColChange;

    /// Rows selected as in a list (SelectedRows); the view keeps them in step with the user.
    const std::set<int>& selected_rows() const { return selected_; }
    void set_selected_rows(std::set<int> rows);
    int selected_row_count() const { return static_cast<int>(selected_.size()); }

    /// Redraw off suspends the view's updates; turning it on refreshes once.
    bool redraw() const { return redraw_; }
    void set_redraw(bool on);

    /// Mouse up on the table: button 1 left, 2 right.
    std::function<void(int button, int shift, float x, float y)> MouseUp;

    /// Counts structural changes (rows, columns, hidden flags), so that a view knows when a
    /// cheap cell refresh is not enough.
    std::uint64_t layout_revision() const { return layout_revision_; }

private:
    /// Positions of a row, a column, a cell; outside the grid raises Subscript out of range.
    std::size_t row_index(int row) const;
    std::size_t col_index(int col) const;
    std::size_t at(int row, int col) const;
    void notify_if_redraw() const {
        if (redraw_) notify();
    }
    void touch_layout() {
        ++layout_revision_;
        notify_if_redraw();
    }

    int rows_, cols_;
    int fixed_rows_ = 1;
    std::vector<std::string> cells_;
    std::vector<int> col_width_;
    std::vector<int> col_align_;
    std::vector<char> row_hidden_;
    std::vector<char> col_hidden_;
    std::map<std::pair<int, int>, int> back_color_;
    std::map<std::pair<int, int>, std::string> tool_tip_;
    std::set<int> selected_;
    int row_ = 1, col_ = 0;
    bool redraw_ = true;
    std::uint64_t layout_revision_ = 0;
};

/// The table as text a spreadsheet takes: one line per row, cells split by tabs, the heading row
/// first when the table has one. `rows` and `cols` (grid indices) pick the cells; an empty `rows`
/// takes every row and an empty `cols` every column. Rows and columns the user does not see
/// (hidden, or of no width) are left out; a tab or line break inside a cell becomes a blank.
std::string tab_separated(const Grid& grid, const std::set<int>& rows = {}, const std::set<int>& cols = {});

}  // namespace tv::forms
