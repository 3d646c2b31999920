#pragma once
// A table of text cells as the capacity windows keep them: row 0 holds the headings, later steps
// read the texts back. The window copies it to and from its grid.
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tv::windows {

/// Cell colours as the grid takes them (0xBBGGRR).
inline constexpr int kRed = 0x0000FF;
inline constexpr int kBlue = 0xFF0000;
/// Alignment code "left centre" of the grid.
inline constexpr int kLeftCentre = 1;

class TextTable {
public:
    TextTable() = default;
    TextTable(int rows, int cols);

    int rows() const { return rows_; }
    int cols() const { return cols_; }
    /// Resizes keeping the cells that fit; new cells are empty. A negative count raises 9.
    void set_rows(long n);
    void set_cols(long n);

    /// An index outside the table raises RuntimeError 9.
    const std::string& text(long row, long col) const;
    void set_text(long row, long col, std::string text);
    /// Index by a double, rounded half to even as the grid's Long parameter was.
    const std::string& text_at(double row, long col) const;

    /// Empties every cell and drops the cell colours; rows, columns and layout stay.
    void clear();

    bool col_hidden(long col) const;
    void set_col_hidden(long col, bool hidden);
    /// Width in twips; -1 until set.
    int col_width(long col) const;
    void set_col_width(long col, int twips);
    /// Alignment code; -1 until set.
    int col_alignment(long col) const;
    void set_col_alignment(long col, int code);

    /// Background colour of a cell, 0xBBGGRR; -1 when none was set.
    int cell_color(long row, long col) const;
    void set_cell_color(long row, long col, int color);
    /// Every coloured cell as (row, col) -> colour.
    const std::map<std::pair<int, int>, int>& cell_colors() const { return colors_; }

    /// Row r as a vector of texts (a copy), for tests and copying.
    std::vector<std::string> row_texts(long row) const;

private:
    std::size_t at(long row, long col) const;
    void check_col(long col) const;

    int rows_ = 0, cols_ = 0;
    std::vector<std::string> cells_;
    std::vector<char> hidden_;
    std::vector<int> width_, align_;
    std::map<std::pair<int, int>, int> colors_;
};

}  // namespace tv::windows
