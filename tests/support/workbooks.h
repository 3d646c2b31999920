#pragma once
// Small workbooks written by the tests themselves: .xlsx parts zipped with minizip, and a
// minimal BIFF8 .xls in a compound file (no library here writes that format).
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "support/files.h"

namespace tv::test {

/// A zip of the given parts, stored in order.
void write_zip(const std::string& path, const std::vector<std::pair<std::string, std::string>>& parts);

/// The parts of an .xlsx with one worksheet whose <sheetData> content is `sheet_data`, and a
/// shared-string table of `shared` (each text already XML-escaped).
std::vector<std::pair<std::string, std::string>> xlsx_parts(const std::string& sheet_data,
                                                            const std::vector<std::string>& shared = {});

/// A cell of the .xls fixture: a number, a text (written to the shared-string table) or a
/// boolean.
using XlsCell = std::variant<double, std::string, bool>;
struct XlsEntry {
    int row;     // from 0
    int column;  // from 0
    XlsCell value;
};

/// A BIFF8 workbook with one worksheet holding `cells`, in a version 3 compound file.
std::string xls_bytes(const std::vector<XlsEntry>& cells);

}  // namespace tv::test
