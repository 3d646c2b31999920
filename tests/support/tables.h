#pragma once
// Tables of cases kept as data under tests/golden/tables: one case a line, the function's name
// and its arguments, "->", the expected result. Words are split at blanks; "..." holds blanks,
// with \t \n \r \" \\ inside; `#` starts a note line.
#include <functional>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "support/workbooks.h"

namespace tv::test {

struct TableRow {
    std::string where;                  // file:line, for the failure message
    std::vector<std::string> args;      // the function's name first
    std::vector<std::string> expected;  // the words after "->"
};

/// The rows of tests/golden/tables/<name>; a malformed line fails the calling test.
std::vector<TableRow> table_rows(const std::string& name);

/// A word as a double, read as C reads it (inf, nan and hexadecimal included).
double number(const std::string& word);

/// What a call gives: a number, a text, or nothing (an empty optional: "none" in the table).
using TableResult = std::variant<double, std::string, std::monostate>;
using TableArgs = std::vector<std::string>;
using TableCalls = std::map<std::string, std::function<TableResult(const TableArgs&)>>;

/// Runs every row of the table through the call its first word names and compares: a number
/// bit for bit (so 0 is never -0), or within the tolerance written after it ("-> 1.0225 1e-4");
/// a text as it is; "!overflow", "!type", "!invalid", "!div0", "!subscript": the run-time
/// error raised.
void run_table(const std::string& name, const TableCalls& calls);

/// A number as its shortest text that reads back to it exactly.
std::string shortest(double x);

/// Argument i of a row as a number.
inline double arg(const TableArgs& a, std::size_t i) { return number(a.at(i)); }

/// The cells of an .xls fixture from words "row:column:number" or "row:column:'text".
std::vector<XlsEntry> xls_cells(const std::vector<std::string>& words);

}  // namespace tv::test
