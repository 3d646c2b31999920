#pragma once
// Tables of cases kept as data under tests/golden/tables: one case a line, the function's name
// and its arguments, "->", the expected result. Words are split at blanks; "..." holds blanks,
// with \t \n \r \" \\ inside; `#` starts a note line.
#include <string>
#include <vector>

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

}  // namespace tv::test
