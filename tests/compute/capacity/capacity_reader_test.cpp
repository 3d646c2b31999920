#include "compute/capacity/capacity_reader.h"

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/tables.h"
#include "text/number_text.h"
#include "text/runtime_error.h"

namespace tv::compute {
namespace {

using Lines = std::vector<std::string>;

// A point as "Step Teff Betaeff Sd_C Sa_C Sd_d Sa_d ALPHA Pf_fi".
std::string point_text(const CapacityPoint& p) {
    std::string s = std::to_string(p.Step);
    for (double v : {p.Teff, p.Betaeff, p.Sd_C, p.Sa_C, p.Sd_d, p.Sa_d, p.ALPHA, p.Pf_fi}) s += " " + text::to_text(v);
    return s;
}

std::string joined(const CapacityFields& f) {
    std::string s = f[0];
    for (std::size_t i = 1; i < f.size(); ++i) s += "|" + f[i];
    return s;
}

// The capacity table's lines cleaned, cut and read: the cases are data in
// tests/golden/tables/capacity_lines.txt.
TEST(CapacityLines, EveryCaseGivesItsResult) {
    using Args = test::TableArgs;
    using Result = test::TableResult;
    test::run_table("capacity_lines.txt", {
        {"clean", [](const Args& a) -> Result { return clean_capacity_line(a.at(1)); }},
        {"split", [](const Args& a) -> Result {
             const auto f = split_capacity_line(a.at(1));
             return f ? Result(joined(*f)) : Result(std::monostate());
         }},
        {"point", [](const Args& a) -> Result {
             CapacityFields f;
             for (std::size_t i = 0; i < f.size(); ++i) f[i] = a.at(i + 1);
             return point_text(capacity_point(f));
         }},
        // The lines of a file, each a word: the error, then each row's fields and point.
        {"parse", [](const Args& a) -> Result {
             const CapacityTable t = parse_capacity_lines(Lines(a.begin() + 1, a.end()));
             std::string s = t.ok() ? "ok" : "error " + std::to_string(t.error) + " " + t.description;
             for (const CapacityRow& r : t.rows) s += "; " + joined(r.fields) + " = " + point_text(r.point);
             return s;
         }},
    });
}

TEST(ReadCapacityFile, MissingFileIsError53) {
    test::TempDir dir;
    CapacityTable t = read_capacity_file((dir.path() / "none.txt").string());
    EXPECT_EQ(t.error, text::kFileNotFound);
    EXPECT_TRUE(t.rows.empty());
}

TEST(ReadCapacityFile, CrLfLinesAndTheTableCells) {
    test::TempDir dir;
    std::string path = dir.write("cap.txt",
                                 "Demand Capacity\r\n Step Teff Betaeff Sd_C Sa_C Sd_d Sa_d ALPHA Pf_fi\r\n"
                                 " 0 0.40 5 0 0 0 0 0 1.3\r\n 1 0.42 5 10.5 0.25 11 0.24 0.9 1.3\r\n");
    CapacityTable t = read_capacity_file(path);
    ASSERT_TRUE(t.ok());
    ASSERT_EQ(t.rows.size(), 2u);
    EXPECT_EQ(t.rows[1].fields[8], " 1.3");
}

}  // namespace
}  // namespace tv::compute
