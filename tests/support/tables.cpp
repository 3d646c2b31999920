#include "support/tables.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>

#include "support/files.h"
#include "text/runtime_error.h"

namespace tv::test {

std::vector<TableRow> table_rows(const std::string& name) {
    const std::filesystem::path path = std::filesystem::path(TV_SOURCE_DIR) / "tests/golden/tables" / name;
    const std::vector<std::string> lines = lines_of(path);
    EXPECT_FALSE(lines.empty()) << path;
    std::vector<TableRow> rows;
    for (std::size_t n = 0; n < lines.size(); ++n) {
        const std::string& l = lines[n];
        TableRow row{name + ":" + std::to_string(n + 1), {}, {}};
        bool after = false;
        for (std::size_t i = 0; i < l.size();) {
            if (l[i] == ' ' || l[i] == '\t') {
                ++i;
                continue;
            }
            if (l[i] == '#' && row.args.empty()) break;
            std::string word;
            if (l[i] == '"') {
                static const std::string from = "tnr\"\\", to = "\t\n\r\"\\";
                for (++i; i < l.size() && l[i] != '"'; ++i) {
                    const std::size_t k = l[i] == '\\' && i + 1 < l.size() ? from.find(l[i + 1]) : std::string::npos;
                    word += k == std::string::npos ? l[i] : to[k];
                    i += k != std::string::npos;
                }
                EXPECT_LT(i, l.size()) << row.where << ": no closing quote";
                ++i;
            } else {
                while (i < l.size() && l[i] != ' ' && l[i] != '\t') word += l[i++];
                if (word == "->") {
                    after = true;
                    continue;
                }
            }
            (after ? row.expected : row.args).push_back(word);
        }
        if (row.args.empty()) continue;
        EXPECT_TRUE(after) << row.where << ": no \"->\"";
        rows.push_back(std::move(row));
    }
    return rows;
}

double number(const std::string& word) {
    char* end = nullptr;
    const double x = std::strtod(word.c_str(), &end);
    EXPECT_TRUE(!word.empty() && *end == '\0') << "not a number: " << word;
    return x;
}

std::string shortest(double x) {
    char buf[32];
    return std::string(buf, std::to_chars(buf, buf + sizeof buf, x).ptr);
}

void run_table(const std::string& name, const TableCalls& calls) {
    static const std::map<std::string, int> errors{{"!invalid", text::kInvalidCall}, {"!overflow", text::kOverflow},
                                                   {"!subscript", text::kSubscript}, {"!div0", text::kDivisionByZero},
                                                   {"!type", text::kTypeMismatch}};
    for (const TableRow& row : table_rows(name)) {
        SCOPED_TRACE(row.where);
        ASSERT_FALSE(row.expected.empty());
        const std::string& want = row.expected[0];
        const auto call = calls.find(row.args[0]);
        ASSERT_NE(call, calls.end()) << row.args[0];
        TableResult got;
        try {
            got = call->second(row.args);
        } catch (const text::RuntimeError& e) {
            EXPECT_TRUE(errors.contains(want) && errors.at(want) == e.number()) << "raised " << e.number();
            continue;
        }
        if (const double* x = std::get_if<double>(&got)) {
            if (row.expected.size() > 1)
                EXPECT_NEAR(*x, number(want), number(row.expected[1]));
            else
                EXPECT_EQ(std::bit_cast<std::uint64_t>(*x), std::bit_cast<std::uint64_t>(number(want))) << *x;
        } else if (const std::string* s = std::get_if<std::string>(&got)) {
            EXPECT_EQ(*s, want);
        } else {
            EXPECT_EQ("none", want);
        }
    }
}

std::vector<XlsEntry> xls_cells(const std::vector<std::string>& words) {
    std::vector<XlsEntry> cells;
    for (const std::string& w : words) {
        const std::size_t c1 = w.find(':'), c2 = w.find(':', c1 + 1);
        const std::string v = w.substr(c2 + 1);
        const XlsCell cell = v[0] == '\'' ? XlsCell(v.substr(1)) : XlsCell(number(v));
        cells.push_back({std::stoi(w), std::stoi(w.substr(c1 + 1)), cell});
    }
    return cells;
}

}  // namespace tv::test
