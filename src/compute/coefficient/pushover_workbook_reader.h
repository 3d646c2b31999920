#pragma once
// The pushover spreadsheet: the first worksheet, Step, Displacement and Base Force in columns
// A to C, a heading in row 1 and data from row 2 down to the first row whose column A is empty.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "compute/coefficient/pushover_table.h"

namespace tv::compute {

/// Run-time error number of a workbook that cannot be opened or understood.
inline constexpr int kWorkbookUnreadable = 1004;

/// The largest part of an .xlsx package that is unpacked; a larger one (a "zip bomb") makes the
/// workbook unreadable before it is inflated.
inline constexpr std::uint64_t kWorkbookPartLimit = std::uint64_t{16} << 20;

/// Reads a workbook, an Office Open XML one (.xlsx) or a BIFF one (.xls), told apart by its
/// content. Cells are taken as their stored value in text: a number as to_text of the double,
/// a string as it is, a boolean as "True" / "False". The row loop grows the points array, then
/// reads Base Force, Displacement and Step (nearest 16-bit integer, ties to even) by the
/// leading-number rule.
/// Failure: those of read_input_file (53, 75, with the path and the system's reason),
/// kWorkbookUnreadable (not a workbook, damaged, no worksheet, a part above kWorkbookPartLimit,
/// a spreadsheet reader that failed or took too long), 13 (an error value such as #N/A in a cell
/// read), 6 (a step beyond 16 bits); the table holds the rows read so far.
PushoverTable read_pushover_workbook(const std::string& path);

/// Every cell of the first worksheet, for readers of other sheet layouts.
struct WorkbookCells {
    /// rows[r][c] is the text of row r + 1, column c + 1 (as read_pushover_workbook takes cells;
    /// an error value as its code, "#N/A"); trailing empty cells are dropped.
    std::vector<std::vector<std::string>> rows;
    int error = 0;
    std::string description;
    bool ok() const { return error == 0; }
};

/// Reads columns 1 to `max_columns` of rows 1 to `max_rows` of the first worksheet.
/// Failure: as read_pushover_workbook (53, kWorkbookUnreadable, 7), with no rows.
WorkbookCells read_workbook_cells(const std::string& path, int max_columns, long max_rows);

/// The same for an .xlsx workbook (a zip package): the first worksheet in the workbook's sheet
/// order, shared and inline strings, numbers, booleans.
PushoverTable read_pushover_xlsx(const std::string& path);

/// The same for the bytes of an .xlsx package; `name` stands for the file in the descriptions.
PushoverTable read_pushover_xlsx_bytes(std::string_view bytes, const std::string& name);

/// The same for an .xls workbook (BIFF in a compound file), worksheet 0, read through FreeXL in
/// the helper program tremorvault-xls-reader, which runs at most 20 s (10 s of processor time)
/// in at most 1 GiB of memory.
PushoverTable read_pushover_xls(const std::string& path);

}  // namespace tv::compute
