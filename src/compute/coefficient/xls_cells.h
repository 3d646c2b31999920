#pragma once
// The cells of an .xls pushover table, read by FreeXL in a helper process of ours
// (tremorvault-xls-reader) and handed back as text, so that a damaged file cannot reach a
// library fault in the program's own process.
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace tv::compute {

/// Reads worksheet 0 of the BIFF workbook at `path` through FreeXL and writes, in the order the
/// pushover table reader asks for them (for rows 2, 3, ...: A, then C and B while A is not
/// empty), every cell's text, until A is empty or a cell cannot be read. A workbook that cannot
/// be opened, or a cell that cannot be read, ends the answer with its description. Runs inside
/// the helper; the FreeXL handle is closed on every way out. With `columns` above 0, every
/// non-empty cell of rows 1 to `rows`, columns 1 to `columns` instead (tables of other layouts).
std::string xls_cells_answer(const std::string& path, int columns = 0, long rows = 0);

/// The helper's answer taken apart.
class XlsCells {
public:
    /// Nothing when the answer is not whole (the helper stopped early).
    static std::optional<XlsCells> parse(const std::string& answer);

    /// The text of a cell as the workbook gives it; a cell past the answer's end is empty.
    /// Throws RuntimeError kWorkbookUnreadable where the helper could not read on.
    std::string text(long row, int column) const;
    /// Throws RuntimeError kWorkbookUnreadable when the workbook could not be opened at all.
    void check_opened() const;
    /// The last row that holds a cell of the answer.
    long last_row() const { return cells_.empty() ? 0 : cells_.rbegin()->first.first; }

private:
    std::map<std::pair<long, int>, std::string> cells_;
    std::optional<std::string> open_failure_, cell_failure_;
};

}  // namespace tv::compute
