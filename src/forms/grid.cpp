#include "forms/grid.h"

#include "text/runtime_error.h"

namespace tv::forms {

using text::kSubscript;
using text::raise;

Grid::Grid(Form& f, std::string name, int rows, int cols, Control* container)
    : Control(f, std::move(name), ControlKind::Grid, container), rows_(0), cols_(0) {
    set_cols(cols);
    set_rows(rows);
    row_ = rows_ > 1 ? 1 : 0;  // the first row under the heading
}

namespace {

// An index of 0 to n - 1 as a position; any other raises.
std::size_t checked(int i, int n) {
    if (i < 0 || i >= n) raise(kSubscript);
    return static_cast<std::size_t>(i);
}

}  // namespace

std::size_t Grid::row_index(int row) const { return checked(row, rows_); }
std::size_t Grid::col_index(int col) const { return checked(col, cols_); }

std::size_t Grid::at(int row, int col) const {
    return row_index(row) * static_cast<std::size_t>(cols_) + col_index(col);
}

void Grid::set_rows(int n) {
    if (n < 0) raise(kSubscript);
    if (n == rows_) return;
    cells_.resize(static_cast<std::size_t>(n) * static_cast<std::size_t>(cols_));
    if (n < rows_) {
        for (auto it = selected_.lower_bound(n); it != selected_.end();) it = selected_.erase(it);
        for (auto it = back_color_.begin(); it != back_color_.end();)
            it = it->first.first >= n ? back_color_.erase(it) : std::next(it);
        for (auto it = tool_tip_.begin(); it != tool_tip_.end();)
            it = it->first.first >= n ? tool_tip_.erase(it) : std::next(it);
    }
    row_hidden_.resize(static_cast<std::size_t>(n), 0);
    rows_ = n;
    if (row_ >= rows_) row_ = rows_ > 0 ? rows_ - 1 : 0;
    touch_layout();
}

void Grid::set_cols(int n) {
    if (n < 0) raise(kSubscript);
    if (n == cols_) return;
    std::vector<std::string> cells(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(n));
    for (int r = 0; r < rows_; ++r)
        for (int c = 0; c < std::min(n, cols_); ++c)
            cells[static_cast<std::size_t>(r) * n + c] = std::move(cells_[static_cast<std::size_t>(r) * cols_ + c]);
    cells_ = std::move(cells);
    col_width_.resize(static_cast<std::size_t>(n), -1);
    col_align_.resize(static_cast<std::size_t>(n), 0);
    col_hidden_.resize(static_cast<std::size_t>(n), 0);
    cols_ = n;
    if (col_ >= cols_) col_ = cols_ > 0 ? cols_ - 1 : 0;
    touch_layout();
}

const std::string& Grid::text(int row, int col) const { return cells_[at(row, col)]; }

void Grid::set_text(int row, int col, std::string text) {
    std::size_t i = at(row, col);
    if (cells_[i] == text) return;
    cells_[i] = std::move(text);
    notify_if_redraw();
}

void Grid::clear() {
    for (auto& c : cells_) c.clear();
    tool_tip_.clear();
    notify_if_redraw();
}

int Grid::col_width(int col) const {
    return col_width_[col_index(col)];
}

void Grid::set_col_width(int col, int twips) {
    col_width_[col_index(col)] = twips;
    touch_layout();
}

int Grid::col_alignment(int col) const {
    return col_align_[col_index(col)];
}

void Grid::set_col_alignment(int col, int code) {
    col_align_[col_index(col)] = code;
    notify_if_redraw();
}

bool Grid::row_hidden(int row) const {
    return row_hidden_[row_index(row)] != 0;
}

void Grid::set_row_hidden(int row, bool hidden) {
    const std::size_t i = row_index(row);
    if ((row_hidden_[i] != 0) == hidden) return;
    row_hidden_[i] = hidden ? 1 : 0;
    touch_layout();
}

bool Grid::col_hidden(int col) const {
    return col_hidden_[col_index(col)] != 0;
}

void Grid::set_col_hidden(int col, bool hidden) {
    col_hidden_[col_index(col)] = hidden ? 1 : 0;
    touch_layout();
}

int Grid::cell_back_color(int row, int col) const {
    at(row, col);
    auto it = back_color_.find({row, col});
    return it == back_color_.end() ? -1 : it->second;
}

void Grid::set_cell_back_color(int row, int col, int color) {
    at(row, col);
    back_color_[{row, col}] = color;
    notify_if_redraw();
}

std::string Grid::cell_tool_tip(int row, int col) const {
    at(row, col);
    auto it = tool_tip_.find({row, col});
    return it == tool_tip_.end() ? std::string() : it->second;
}

void Grid::set_cell_tool_tip(int row, int col, std::string tip) {
    at(row, col);
    tool_tip_[{row, col}] = std::move(tip);
}

void Grid::set_row(int r) {
    row_index(r);
    if (r == row_) return;
    row_ = r;
    notify_if_redraw();
    if (RowColChange) RowColChange();
}

void Grid::set_col(int c) {
    col_index(c);
    if (c == col_) return;
    col_ = c;
    notify_if_redraw();
    if (RowColChange) RowColChange();
}

void Grid::set_selected_rows(std::set<int> rows) {
    selected_ = std::move(rows);
    notify_if_redraw();
}

void Grid::set_redraw(bool on) {
    if (redraw_ == on) return;
    redraw_ = on;
    if (on) {
        ++layout_revision_;
        notify();
    }
}

std::string tab_separated(const Grid& grid, const std::set<int>& rows, const std::set<int>& cols) {
    auto seen_col = [&grid](int c) { return !grid.col_hidden(c) && grid.col_width(c) != 0; };
    std::vector<int> cs;
    for (int c = 0; c < grid.cols(); ++c)
        if ((cols.empty() || cols.count(c) != 0) && seen_col(c)) cs.push_back(c);
    std::vector<int> rs;
    const int first = grid.fixed_rows() > 0 ? 1 : 0;
    if (first == 1 && grid.rows() > 0) rs.push_back(0);
    for (int r = first; r < grid.rows(); ++r)
        if ((rows.empty() || rows.count(r) != 0) && !grid.row_hidden(r)) rs.push_back(r);
    std::string out;
    for (int r : rs) {
        for (std::size_t i = 0; i < cs.size(); ++i) {
            if (i > 0) out += '\t';
            for (char ch : grid.text(r, cs[i])) out += ch == '\t' || ch == '\n' || ch == '\r' ? ' ' : ch;
        }
        out += '\n';
    }
    return out;
}

}  // namespace tv::forms
