// Pushover and capacity curves as other programs export them: the real exports of
// ../shared/data, small made-up texts for the layouts and the bad files, the detector that keeps
// the program's own layouts on their own readers, the first mode's numbers, and the capacity
// table built from a curve.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <numbers>
#include <sstream>

#include "compute/capacity/capacity_reader.h"
#include "compute/import/curve_import.h"
#include "compute/import/first_mode.h"
#include "support/fake_platform.h"
#include "support/tables.h"
#include "support/workbooks.h"

namespace tv::compute {
namespace {

namespace fs = std::filesystem;

// A file of the project's samples, or else of ../shared/data (empty when not there).
std::string data(const std::string& name) {
    if (name.starts_with("samples/")) return (fs::path(TV_SOURCE_DIR) / name).string();
    return test::data_path(name);
}

std::string joined(const std::vector<std::string>& words, const std::string& between) {
    std::string out;
    for (const std::string& w : words) out += (out.empty() ? "" : between) + w;
    return out;
}

// What an import gives, as one line: the message, the question to ask, or the curve read (its
// first two points and its last when it has more than four).
std::string described(const CurveImport& c) {
    if (c.error) return c.error->message();
    if (c.needs_case) return "which case: " + joined(c.cases, ", ");
    if (c.needs_columns) return "which columns: " + joined(c.headings, " / ");
    auto point = [](const CurvePoint& p) {
        return " (" + test::shortest(p.displacement) + ", " + test::shortest(p.force) + ")";
    };
    std::string out = c.layout + " | " + joined(c.headings, " / ") + " | columns " +
                      std::to_string(c.displacement_column) + " " + std::to_string(c.force_column) + " | " +
                      c.length_unit + " " + c.force_unit + " | " + c.conversion + " | ";
    if (c.first_point_off_origin) out += "first point" + point(c.first_point) + " | ";
    if (c.shifted) out += "shifted | ";
    if (c.vertical_steps) out += std::to_string(c.vertical_steps) + " vertical steps | ";
    if (c.participation_factor) out += "participation factor " + test::shortest(c.participation_factor) + " | ";
    out += std::to_string(c.points.size()) + " points:";
    for (std::size_t k = 0; k < c.points.size(); ++k) {
        if (c.points.size() > 4 && k == 2) out += " ...", k = c.points.size() - 1;
        out += point(c.points[k]);
    }
    return out;
}

// The real exports of ../shared/data and made-up texts: the cases are data in
// tests/golden/tables/curve_import.txt.
TEST(CurveImport, EveryFileGivesItsCurveOrItsMessage) {
    if (data("pushover/README.md").empty()) GTEST_SKIP() << "no " << TV_DATA_DIR;
    auto run = [](const test::TableArgs& a) -> test::TableResult {
        const CurveKind kind = a.at(1) == "spectral" ? CurveKind::spectral : CurveKind::pushover;
        CurveImportOptions o;
        for (std::size_t k = 3; k < a.size(); ++k) {
            const std::string& w = a[k];
            const std::string value = w.substr(w.find('=') + 1);
            if (w == "shift") o.shift_to_origin = true;
            else if (w == "system=tonf_m") o.system = UnitSystem::tonf_m;
            else if (w.starts_with("length=")) o.length_unit = value;
            else if (w.starts_with("force=")) o.force_unit = value;
            else if (w.starts_with("case=")) o.case_name = value;
            else if (w.starts_with("columns=")) o.displacement_column = value[0] - '0', o.force_column = value[2] - '0';
            else return "unknown option " + w;
        }
        if (a.at(0) == "text") return described(import_curve_text(a.at(2), "curve.txt", kind, o));
        return described(import_curve(a.at(2).starts_with("/") ? a.at(2) : data(a.at(2)), kind, o));
    };
    // Whether a file is in the program's own layout: a pushover workbook or listing, or a capacity
    // table; exports are the import's.
    auto own = [](const test::TableArgs& a) -> test::TableResult {
        const std::string path = data(a.at(1));
        const bool own = a.at(0) == "own_capacity" ? capacity_file_has_own_layout(path)
                                                   : pushover_file_has_own_layout(path, a.at(0) == "own_workbook");
        return std::string(own ? "yes" : "no");
    };
    // The first mode's numbers from storey weights and the mode shape, "-" for none given.
    auto first_mode = [](const test::TableArgs& a) -> test::TableResult {
        auto numbers = [&](std::size_t i) {
            std::vector<double> v;
            std::stringstream words(a.at(i) == "-" ? "" : a.at(i));
            for (std::string w; std::getline(words, w, ',');) v.push_back(test::number(w));
            return v;
        };
        const auto m = first_mode_numbers(numbers(1), numbers(2));
        if (!m) return std::monostate();
        return a.at(3) == "weight" ? m->weight : a.at(3) == "alpha1" ? m->alpha1 : m->pf_phi;
    };
    // An .xls export of the cells "row:column:number" or "row:column:'text".
    auto xls = [](const test::TableArgs& a) -> test::TableResult {
        test::TempDir dir;
        test::spill(dir.file("export.xls"), test::xls_bytes(test::xls_cells({a.begin() + 1, a.end()})));
        return described(import_curve(dir.file("export.xls"), CurveKind::pushover));
    };
    test::run_table("curve_import.txt", {{"file", run}, {"text", run}, {"xls", xls}, {"own_workbook", own},
                                         {"own_listing", own}, {"own_capacity", own}, {"first_mode", first_mode}});
}

// A listing whose row holds no number is an export for the import, not the listing reader's.
TEST(CurveImportDetector, AListingRowWithoutANumberIsAnExport) {
    test::TempDir dir;
    const std::string listing = dir.write("l.txt", "Step Displacement BaseForce Hinges\n 0 0 0 0\n 1 x 5 0\n");
    EXPECT_FALSE(pushover_file_has_own_layout(listing, false));
}

TEST(CurveImportPushover, StepsAreNumberedInRowOrderAsAListingWouldHoldThem) {
    PushoverTable t = pushover_table_from_curve({{0, 0}, {0.5, 1000.25}, {1.0 / 3, 2}});
    ASSERT_TRUE(t.ok());
    ASSERT_EQ(t.rows.size(), 3u);
    EXPECT_EQ(t.rows[2].step_text, "2");
    EXPECT_EQ(t.rows[2].displacement_text, "0.333333333333333");
    EXPECT_EQ(t.points(1).BaseForce, 1000.25);
    EXPECT_EQ(t.points.ubound(), 2);
}

TEST(CurveImportCapacity, PushoverCurveBecomesTheNineColumnTableTheReaderGivesBack) {
    // V = 0.3 α1 W at Δroof = 2.6 cm with PF1·φ = 1.3: Sa = 0.3 g, Sd = 2 cm.
    const ModalNumbers modal{1000.0, 0.8, 1.3};
    CapacityTable t = capacity_table_from_pushover({{0, 0}, {2.6, 240.0}}, modal, 981);
    ASSERT_TRUE(t.ok());
    ASSERT_EQ(t.rows.size(), 2u);
    const CapacityPoint& p = t.rows[1].point;
    EXPECT_DOUBLE_EQ(p.Sd_C, 2.0);
    EXPECT_DOUBLE_EQ(p.Sa_C, 0.3);
    EXPECT_NEAR(p.Teff, 2 * std::numbers::pi * std::sqrt(2.0 / (0.3 * 981)), 1e-14);
    EXPECT_EQ(p.ALPHA, 0.8);
    EXPECT_EQ(p.Pf_fi, 1.3);
    EXPECT_EQ(t.rows[0].point.Teff, 0.0);

    const CapacityTable back = parse_capacity_lines(capacity_file_lines(t, "made from a curve"));
    ASSERT_EQ(back.rows.size(), 2u);
    for (std::size_t r = 0; r < 2; ++r) EXPECT_EQ(back.rows[r].fields, t.rows[r].fields);
    EXPECT_EQ(back.rows[1].point.Teff, p.Teff);

    EXPECT_FALSE(capacity_table_from_pushover({{0, 0}}, {1000.0, 0.0, 1.3}, 981).ok());
}

}  // namespace
}  // namespace tv::compute
