#include "compute/capacity/capacity_reader.h"

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/tables.h"
#include "text/number_text.h"

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

// The error, then each row's fields and point.
std::string table_text(const CapacityTable& t) {
    std::string s = t.ok() ? "ok" : "error " + std::to_string(t.error) + " " + t.description;
    for (const CapacityRow& r : t.rows) s += "; " + joined(r.fields) + " = " + point_text(r.point);
    return s;
}

// The capacity table's lines cleaned, cut and read, from lines and from files: the cases are
// data in tests/golden/tables/capacity_lines.txt.
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
             return table_text(parse_capacity_lines(Lines(a.begin() + 1, a.end())));
         }},
        // A file of these bytes read, or a file that is not there (DIR/none.txt).
        {"file", [](const Args& a) -> Result {
             test::TempDir dir;
             const bool missing = a.at(1) == "missing";
             const std::string path = missing ? dir.file("none.txt") : dir.write("c.txt", a.at(1));
             std::string out = table_text(read_capacity_file(path));
             if (missing) out.replace(out.find(dir.path().string()), dir.path().string().size(), "DIR");
             return out;
         }},
    });
}

}  // namespace
}  // namespace tv::compute
