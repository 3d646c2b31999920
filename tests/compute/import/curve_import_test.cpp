// Pushover and capacity curves as other programs export them: the real exports of
// ../shared/data, small made-up texts for the layouts and the bad files, the detector that keeps
// the program's own layouts on their own readers, and the capacity table built from a curve.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <numbers>

#include "compute/capacity/capacity_reader.h"
#include "compute/import/curve_import.h"
#include "compute/import/first_mode.h"
#include "support/workbooks.h"

namespace tv::compute {
namespace {

namespace fs = std::filesystem;

std::string data(const std::string& name) {
    const fs::path p = fs::path(TV_DATA_DIR) / name;
    return fs::exists(p) ? p.string() : std::string();
}

std::string sample(const std::string& name) { return (fs::path(TV_SOURCE_DIR) / "samples" / name).string(); }

#define NEED(path) \
    if ((path).empty()) GTEST_SKIP() << "no " << TV_DATA_DIR

CurveImport from_text(const std::string& text, CurveImportOptions options = {}, CurveKind kind = CurveKind::pushover) {
    return import_curve_text(text, "curve.txt", kind, options);
}

TEST(CurveImportReal, EtabsWorkbookIsReadByItsHeadingsAndItsFirstPointOffered) {
    const std::string path = data("pushover/PDcurve.xlsx");
    NEED(path);
    CurveImport c = import_curve(path, CurveKind::pushover);
    ASSERT_TRUE(c.ok()) << c.error->message();
    EXPECT_EQ(c.headings.at(1), "Monitored Displ");
    EXPECT_EQ(c.displacement_column, 2);
    EXPECT_EQ(c.force_column, 3);
    EXPECT_EQ(c.length_unit, "cm");
    EXPECT_EQ(c.force_unit, "kgf");
    EXPECT_EQ(c.conversion, "cm (as it stands), kgf (as it stands)");
    ASSERT_EQ(c.points.size(), 12u);
    EXPECT_TRUE(c.first_point_off_origin);
    EXPECT_FALSE(c.shifted);
    EXPECT_EQ(c.first_point.displacement, -0.0414);
    EXPECT_EQ(c.points.back().displacement, 10.1596);

    CurveImportOptions shift;
    shift.shift_to_origin = true;
    shift.system = UnitSystem::tonf_m;
    c = import_curve(path, CurveKind::pushover, shift);
    ASSERT_TRUE(c.ok());
    EXPECT_TRUE(c.shifted);
    EXPECT_EQ(c.points.front().displacement, 0.0);
    EXPECT_EQ(c.conversion, "cm → m (× 0.01), kgf → tonf (× 0.001)");
    EXPECT_NEAR(c.points.back().displacement, 0.10201, 1e-15);
    EXPECT_NEAR(c.points.back().force, 437.06427, 1e-12);
}

TEST(CurveImportReal, SemicolonListWithDecimalCommasAndAVerticalStep) {
    const std::string path = data("pushover/capacite_test.csv");
    NEED(path);
    CurveImportOptions o;
    o.length_unit = "mm";
    o.force_unit = "kN";
    CurveImport c = import_curve(path, CurveKind::pushover, o);
    ASSERT_TRUE(c.ok()) << c.error->message();
    ASSERT_EQ(c.points.size(), 40u);
    EXPECT_EQ(c.vertical_steps, 1u);
    EXPECT_FALSE(c.first_point_off_origin);
    EXPECT_EQ(c.conversion, "mm → cm (× 0.1), kN → kgf (× 101.971621297793)");
    EXPECT_DOUBLE_EQ(c.points[1].displacement, 0.1357);
    EXPECT_DOUBLE_EQ(c.points[1].force, 929.111705 * 1000 / 9.80665);
}

TEST(CurveImportReal, SapListWithoutUnitsIsTakenAsItStandsAndSaidSo) {
    const std::string path = data("pushover/PushoverX_sapv16.csv");
    NEED(path);
    CurveImport c = import_curve(path, CurveKind::pushover);
    ASSERT_TRUE(c.ok());
    EXPECT_EQ(c.layout, "two-column list (text)");
    ASSERT_EQ(c.points.size(), 98u);
    EXPECT_EQ(c.points[1].displacement, 0.00098);
    EXPECT_EQ(c.conversion,
              "length unit not stated: taken as cm as it stands, force unit not stated: taken as kgf as it stands");
}

TEST(CurveImportReal, RowWiseSdSaListGivesItsCurveAndParticipationFactor) {
    const std::string path = data("capacity/capacity_curves_Sd-Sa.csv");
    NEED(path);
    CurveImport c = import_curve(path, CurveKind::spectral);
    ASSERT_TRUE(c.ok()) << c.error->message();
    ASSERT_EQ(c.points.size(), 5u);
    EXPECT_EQ(c.participation_factor, 1.275);
    EXPECT_DOUBLE_EQ(c.points[4].displacement, 31.0);  // 0.31 m
    EXPECT_EQ(c.points[4].force, 0.34);
}

TEST(CurveImportWorkbook, XlsExportIsReadByHeadingsInAnyColumn) {
    test::TempDir dir;
    const std::string path = dir.file("export.xls");
    std::vector<test::XlsEntry> cells{{0, 0, std::string("TABLE:  Base Shear vs Monitored Displacement")},
                                      {1, 0, std::string("Step")},
                                      {1, 1, std::string("A-B")},
                                      {1, 2, std::string("Base Force")},
                                      {1, 3, std::string("Monitored Displ")},
                                      {2, 2, std::string("kN")},
                                      {2, 3, std::string("mm")}};
    for (int r = 0; r < 3; ++r) {
        cells.push_back({3 + r, 0, double(r)});
        cells.push_back({3 + r, 1, 7.0});
        cells.push_back({3 + r, 2, 100.0 * r});
        cells.push_back({3 + r, 3, 10.0 * r});
    }
    test::spill(path, test::xls_bytes(cells));
    CurveImport c = import_curve(path, CurveKind::pushover);
    ASSERT_TRUE(c.ok()) << (c.error ? c.error->message() : "a question");
    EXPECT_EQ(c.layout, "table with headings (.xls)");
    EXPECT_EQ(c.displacement_column, 4);
    EXPECT_EQ(c.force_column, 3);
    ASSERT_EQ(c.points.size(), 3u);
    EXPECT_EQ(c.points[2].displacement, 2.0);
    EXPECT_DOUBLE_EQ(c.points[2].force, 200 * 1000 / 9.80665);
}

TEST(CurveImportDetector, OwnLayoutsKeepTheirReadersAndExportsDoNot) {
    EXPECT_TRUE(pushover_file_has_own_layout(sample("pushover.xlsx"), true));
    EXPECT_TRUE(pushover_file_has_own_layout(sample("pushover_listing.txt"), false));
    EXPECT_TRUE(capacity_file_has_own_layout(sample("capacity_sample.txt")));
    // A listing whose row holds no number is an export for the import, not the listing reader's.
    test::TempDir dir;
    EXPECT_FALSE(pushover_file_has_own_layout(dir.write("l.txt", "Step Displacement BaseForce Hinges\n 0 0 0 0\n 1 x 5 0\n"), false));
    if (data("pushover/README.md").empty()) return;
    for (const char* f : {"PDcurve.xlsx", "PDcurve_Xdir.xlsx", "PDcurve_XNdir.xlsx"})
        EXPECT_FALSE(pushover_file_has_own_layout(data(std::string("pushover/") + f), true)) << f;
    for (const char* f : {"PushoverX_sapv16.csv", "PushoverY_sapv16.csv", "capacite_test.csv", "4story_steel.csv",
                          "4story_concrete.csv", "capacity_curves_Vb-droof.csv"})
        EXPECT_FALSE(pushover_file_has_own_layout(data(std::string("pushover/") + f), false)) << f;
    for (const char* f : {"pushover.txt", "capacity_spectrum.txt", "capacity_curves_Sd-Sa.csv"})
        EXPECT_FALSE(capacity_file_has_own_layout(data(std::string("capacity/") + f))) << f;
}

TEST(CurveImportText, LoadCasesAreOfferedAndOneIsPicked) {
    const std::string table =
        "TABLE:  Pushover Curve\n"
        "OutputCase\tStep\tDisplacement\tBaseForce\tAtoB\n"
        "Text\tUnitless\tm\tKN\tUnitless\n"
        "PUSH-X\t0\t0\t0\t1\n"
        "PUSH-X\t1\t0,01\t100\t1\n"
        "PUSH-Y\t0\t0\t0\t1\n"
        "PUSH-Y\t1\t0,02\t150\t1\n";
    CurveImport c = from_text(table);
    EXPECT_TRUE(c.needs_case);
    EXPECT_EQ(c.cases, (std::vector<std::string>{"PUSH-X", "PUSH-Y"}));
    CurveImportOptions o;
    o.case_name = "PUSH-Y";
    c = from_text(table, o);
    ASSERT_TRUE(c.ok()) << c.error->message();
    ASSERT_EQ(c.points.size(), 2u);
    EXPECT_DOUBLE_EQ(c.points[1].displacement, 2.0);
    o.case_name = "PUSH-Z";
    c = from_text(table, o);
    ASSERT_TRUE(c.error);
    EXPECT_EQ(c.error->message(), "curve.txt: no load case \"PUSH-Z\": the cases are PUSH-X, PUSH-Y");
}

TEST(CurveImportText, UnknownHeadingsAskForColumns) {
    // A free title line is no heading: two numbers a line are displacement and force.
    EXPECT_TRUE(from_text("My building, X push\n0 0\n1 10\n").ok());
    const std::string table = "a b c\n0 0 5\n1 10 6\n";
    CurveImport c = from_text(table);
    EXPECT_TRUE(c.needs_columns);
    EXPECT_EQ(c.headings, (std::vector<std::string>{"a", "b", "c"}));
    CurveImportOptions o;
    o.displacement_column = 1;
    o.force_column = 2;
    c = from_text(table, o);
    ASSERT_TRUE(c.ok());
    EXPECT_EQ(c.points[1].force, 10.0);
}

TEST(CurveImportText, BadFilesNameRowAndWhatWasExpected) {
    auto message = [](const std::string& text) {
        CurveImport c = from_text(text);
        return c.error ? c.error->message() : std::string("no error");
    };
    EXPECT_EQ(message("Step,Displacement,Base Force\n0,0,0\n1,x,5\n"),
              "curve.txt, row 3: expected a number in column 2 (\"Displacement\"), found \"x\"");
    EXPECT_EQ(message("Step Displacement Force\nUnitless cubit kgf\n0 0 0\n1 1 5\n"),
              "curve.txt, row 2: unknown length unit \"cubit\": expected mm, cm, m, in or ft");
    EXPECT_EQ(message("just words\nand more\n"),
              "curve.txt: no numeric rows: expected rows holding at least two numbers (displacement and force)");
    EXPECT_EQ(message("0 0\n"), "curve.txt: expected at least two points of the curve, found 1");
    CurveImportOptions o;
    o.force_unit = "stone";
    EXPECT_EQ(from_text("0 0\n1 2\n", o).error->message(),
              "curve.txt: unknown force unit \"stone\": expected N, kN, kgf, tonf, lb or kip");
    o.force_unit = "kN";
    EXPECT_EQ(from_text("0 0\n1 1e308\n", o).error->message(),
              "curve.txt: point 2 is beyond the range of numbers once converted");
    EXPECT_EQ(import_curve("/nonexistent/curve.txt", CurveKind::pushover).error->message(),
              "/nonexistent/curve.txt: no such file");
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

namespace tv::compute {
namespace {

TEST(FirstMode, NumbersFromStoreyWeightsAndTheModeShape) {
    // Two equal storeys, φ = 0.5 and 1: Σwφ = 1.5, Σwφ² = 1.25, PF1 = 1.2, α1 = 2.25 / 2.5.
    auto m = first_mode_numbers({1, 1}, {0.5, 1});
    ASSERT_TRUE(m);
    EXPECT_DOUBLE_EQ(m->weight, 2.0);
    EXPECT_DOUBLE_EQ(m->alpha1, 0.9);
    EXPECT_DOUBLE_EQ(m->pf_phi, 1.2);
    // The scaling of the shape does not matter; the roof is the last storey.
    auto scaled = first_mode_numbers({1, 1}, {-5, -10});
    ASSERT_TRUE(scaled);
    EXPECT_DOUBLE_EQ(scaled->alpha1, 0.9);
    EXPECT_DOUBLE_EQ(scaled->pf_phi, 1.2);
    // The SAP2000 model of the shared data (user guide): PF1·φroof = 1.215, α1 = 0.539.
    auto sap = first_mode_numbers({1239.562, 961.554, 687.12}, {0.00006, 0.61821, 1});
    ASSERT_TRUE(sap);
    EXPECT_NEAR(sap->pf_phi, 1.215, 0.0005);
    EXPECT_NEAR(sap->alpha1, 0.539, 0.0005);
    EXPECT_FALSE(first_mode_numbers({}, {}));
    EXPECT_FALSE(first_mode_numbers({1, 2}, {1}));
    EXPECT_FALSE(first_mode_numbers({1, 0}, {0.5, 1}));
    EXPECT_FALSE(first_mode_numbers({1, 1}, {0, 0}));
}

}  // namespace
}  // namespace tv::compute
