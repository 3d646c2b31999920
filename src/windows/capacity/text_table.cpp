#include "windows/capacity/text_table.h"

#include <algorithm>

#include "text/checked.h"
#include "text/runtime_error.h"

namespace tv::windows {

TextTable::TextTable(int rows, int cols) {
    set_cols(cols);
    set_rows(rows);
}

void TextTable::set_rows(long n) {
    if (n < 0 || n > 0x7fffffffL) text::raise(text::kSubscript);
    std::vector<std::string> cells(static_cast<std::size_t>(n) * static_cast<std::size_t>(cols_));
    int keep = std::min(rows_, static_cast<int>(n));
    for (int r = 0; r < keep; ++r)
        for (int c = 0; c < cols_; ++c) cells[at(r, c)] = std::move(cells_[at(r, c)]);
    cells_ = std::move(cells);
    rows_ = static_cast<int>(n);
    std::erase_if(colors_, [&](const auto& kv) { return kv.first.first >= rows_; });
}

void TextTable::set_cols(long n) {
    if (n < 0 || n > 0x7fffffffL) text::raise(text::kSubscript);
    int cols = static_cast<int>(n);
    std::vector<std::string> cells(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols));
    for (int r = 0; r < rows_; ++r)
        for (int c = 0; c < std::min(cols, cols_); ++c)
            cells[static_cast<std::size_t>(r) * cols + c] = std::move(cells_[at(r, c)]);
    cells_ = std::move(cells);
    cols_ = cols;
    hidden_.resize(static_cast<std::size_t>(cols), 0);
    width_.resize(static_cast<std::size_t>(cols), -1);
    align_.resize(static_cast<std::size_t>(cols), -1);
    std::erase_if(colors_, [&](const auto& kv) { return kv.first.second >= cols_; });
}

std::size_t TextTable::at(long row, long col) const {
    if (row < 0 || row >= rows_ || col < 0 || col >= cols_) text::raise(text::kSubscript);
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) + static_cast<std::size_t>(col);
}

void TextTable::check_col(long col) const {
    if (col < 0 || col >= cols_) text::raise(text::kSubscript);
}

const std::string& TextTable::text(long row, long col) const { return cells_[at(row, col)]; }

void TextTable::set_text(long row, long col, std::string text) { cells_[at(row, col)] = std::move(text); }

const std::string& TextTable::text_at(double row, long col) const { return text(text::index_of(row), col); }

void TextTable::clear() {
    for (auto& c : cells_) c.clear();
    colors_.clear();
}

bool TextTable::col_hidden(long col) const {
    check_col(col);
    return hidden_[static_cast<std::size_t>(col)] != 0;
}

void TextTable::set_col_hidden(long col, bool hidden) {
    check_col(col);
    hidden_[static_cast<std::size_t>(col)] = hidden ? 1 : 0;
}

int TextTable::col_width(long col) const {
    check_col(col);
    return width_[static_cast<std::size_t>(col)];
}

void TextTable::set_col_width(long col, int twips) {
    check_col(col);
    width_[static_cast<std::size_t>(col)] = twips;
}

int TextTable::col_alignment(long col) const {
    check_col(col);
    return align_[static_cast<std::size_t>(col)];
}

void TextTable::set_col_alignment(long col, int code) {
    check_col(col);
    align_[static_cast<std::size_t>(col)] = code;
}

int TextTable::cell_color(long row, long col) const {
    at(row, col);
    auto it = colors_.find({static_cast<int>(row), static_cast<int>(col)});
    return it == colors_.end() ? -1 : it->second;
}

void TextTable::set_cell_color(long row, long col, int color) {
    at(row, col);
    colors_[{static_cast<int>(row), static_cast<int>(col)}] = color;
}

std::vector<std::string> TextTable::row_texts(long row) const {
    at(row, 0);
    return {cells_.begin() + static_cast<long>(at(row, 0)), cells_.begin() + static_cast<long>(at(row, 0)) + cols_};
}

}  // namespace tv::windows
