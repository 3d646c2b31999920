#include "compute/coefficient/pushover_workbook_reader.h"

#include <gtest/gtest.h>

#include "support/fake_platform.h"
#include "support/workbooks.h"

namespace tv::compute {
namespace {

using test::TempDir;

// A cell of the sheet XML.
std::string num(const std::string& ref, const std::string& stored) { return "<c r=\"" + ref + "\"><v>" + stored + "</v></c>"; }
std::string sst(const std::string& ref, int index) {
    return "<c r=\"" + ref + "\" t=\"s\"><v>" + std::to_string(index) + "</v></c>";
}
std::string row(int r, const std::string& cells) { return "<row r=\"" + std::to_string(r) + "\">" + cells + "</row>"; }

const std::vector<std::string> kHeadings = {"Step", "Displacement", "Base Force"};
std::string heading_row() { return row(1, sst("A1", 0) + sst("B1", 1) + sst("C1", 2)); }

PushoverTable read_xlsx(TempDir& dir, const std::string& sheet_data, std::vector<std::string> shared = kHeadings) {
    std::string path = dir.file("book.xlsx");
    test::write_zip(path, test::xlsx_parts(sheet_data, shared));
    return read_pushover_workbook(path);
}

TEST(ReadPushoverXlsx, NumbersAsTheirValueText) {
    TempDir dir;
    PushoverTable t = read_xlsx(dir, heading_row() +
                                         row(2, num("A2", "0") + num("B2", "-4.1399999999999999E-2") + num("C2", "0")) +
                                         row(3, num("A3", "1") + num("B3", "1.0386") + num("C3", "73688.56")) +
                                         row(4, num("A4", "2") + num("B4", "2.1185999999999998") + num("C4", "147377.12")));
    ASSERT_TRUE(t.ok()) << t.description;
    ASSERT_EQ(t.rows.size(), 3u);
    EXPECT_EQ(t.rows[0].displacement_text, "-0.0414");
    EXPECT_EQ(t.rows[2].displacement_text, "2.1186");
    EXPECT_EQ(t.rows[2].force_text, "147377.12");
    EXPECT_EQ(t.rows[2].point.Step, 2);
    EXPECT_DOUBLE_EQ(t.rows[2].point.Displacement, 2.1186);
    EXPECT_DOUBLE_EQ(t.rows[1].point.BaseForce, 73688.56);
    ASSERT_EQ(t.points.ubound(), 2);
    EXPECT_EQ(t.points(1).Step, 1);
}

TEST(ReadPushoverXlsx, StringsBooleansAndTextInNumberColumns) {
    TempDir dir;
    std::vector<std::string> shared = kHeadings;
    shared.push_back("3.5");    // 3
    shared.push_back(" 12 cm");  // 4
    PushoverTable t = read_xlsx(
        dir,
        heading_row() +
            row(2, num("A2", "2.5") + "<c r=\"B2\" t=\"inlineStr\"><is><t>n/a</t></is></c>" + sst("C2", 4)) +
            row(3, sst("A3", 3) + "<c r=\"B3\" t=\"b\"><v>1</v></c>" +
                       "<c r=\"C3\" t=\"inlineStr\"><is><r><t>1</t></r><r><t>5_x0030_</t></r></is></c>"),
        shared);
    ASSERT_TRUE(t.ok()) << t.description;
    ASSERT_EQ(t.rows.size(), 2u);
    EXPECT_EQ(t.rows[0].point.Step, 2);  // 2.5 to even
    EXPECT_EQ(t.rows[0].displacement_text, "n/a");
    EXPECT_EQ(t.rows[0].point.Displacement, 0.0);
    EXPECT_EQ(t.rows[0].force_text, " 12 cm");
    EXPECT_EQ(t.rows[0].point.BaseForce, 12.0);
    EXPECT_EQ(t.rows[1].point.Step, 4);  // "3.5" to even
    EXPECT_EQ(t.rows[1].displacement_text, "True");
    EXPECT_EQ(t.rows[1].point.Displacement, 0.0);
    EXPECT_EQ(t.rows[1].force_text, "150");  // runs joined, _x0030_ is "0"
}

TEST(ReadPushoverXlsx, EndsAtTheFirstEmptyStepCell) {
    TempDir dir;
    PushoverTable t = read_xlsx(dir, heading_row() + row(2, num("A2", "0") + num("B2", "0") + num("C2", "0")) +
                                         row(3, num("B3", "1") + num("C3", "1000")) +  // gap in column A
                                         row(4, num("A4", "2") + num("B4", "2") + num("C4", "2000")));
    ASSERT_TRUE(t.ok());
    EXPECT_EQ(t.rows.size(), 1u);
}

TEST(ReadPushoverXlsx, EmptyA2GivesNoRows) {
    TempDir dir;
    PushoverTable t = read_xlsx(dir, heading_row() + row(2, "<c r=\"A2\" s=\"3\"/>" + num("B2", "1")) +
                                         row(3, num("A3", "1") + num("B3", "1") + num("C3", "1")));
    ASSERT_TRUE(t.ok());
    EXPECT_TRUE(t.rows.empty());
    ASSERT_EQ(t.points.ubound(), 0);
    EXPECT_EQ(t.points(0).BaseForce, 0.0);
}

TEST(ReadPushoverXlsx, CellsWithoutReferencesFollowTheOneBefore) {
    TempDir dir;
    PushoverTable t = read_xlsx(dir, heading_row() + "<row><c><v>0</v></c><c><v>0</v></c><c><v>0</v></c></row>" +
                                         "<row><c><v>1</v></c><c><v>0.5</v></c><c><v>900</v></c><c><v>77</v></c></row>");
    ASSERT_TRUE(t.ok()) << t.description;
    ASSERT_EQ(t.rows.size(), 2u);
    EXPECT_EQ(t.rows[1].force_text, "900");
}

TEST(ReadPushoverXlsx, RowsWithoutReferencesCountFromOne) {
    TempDir dir;
    PushoverTable t = read_xlsx(dir, "<row><c t=\"s\"><v>0</v></c><c t=\"s\"><v>1</v></c><c t=\"s\"><v>2</v></c></row>"
                                     "<row><c><v>0</v></c><c><v>0</v></c><c><v>x</v></c></row>");
    EXPECT_EQ(t.description, "Type mismatch in cell C2");
}

TEST(ReadPushoverXlsx, AnErrorValueStopsTheReadInsideTheRow) {
    TempDir dir;
    PushoverTable t = read_xlsx(dir, heading_row() + row(2, num("A2", "0") + num("B2", "0") + num("C2", "0")) +
                                         row(3, num("A3", "1") + num("B3", "0.5") + "<c r=\"C3\" t=\"e\"><v>#N/A</v></c>"));
    EXPECT_EQ(t.error, text::kTypeMismatch);
    EXPECT_EQ(t.rows.size(), 1u);
    EXPECT_EQ(t.points.ubound(), 1);  // grown, nothing stored yet
    EXPECT_EQ(t.points(1).Displacement, 0.0);
}

TEST(ReadPushoverXlsx, StepBeyondSixteenBits) {
    TempDir dir;
    PushoverTable t = read_xlsx(dir, heading_row() + row(2, num("A2", "32768") + num("B2", "1") + num("C2", "2")));
    EXPECT_EQ(t.error, text::kOverflow);
    EXPECT_TRUE(t.rows.empty());
    EXPECT_EQ(t.points(0).BaseForce, 2.0);
    EXPECT_EQ(t.points(0).Displacement, 1.0);
}

TEST(ReadPushoverXlsx, FirstWorksheetInWorkbookOrder) {
    // sheet1.xml is listed second in the workbook and a chart sheet comes first: the reader
    // takes sheet2.xml.
    TempDir dir;
    const std::string rel = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
    auto parts = test::xlsx_parts(heading_row() + row(2, num("A2", "1") + num("B2", "1") + num("C2", "1")), kHeadings);
    for (auto& [name, content] : parts) {
        if (name == "xl/workbook.xml")
            content = "<workbook xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" xmlns:r=\"" + rel +
                      "\"><sheets><sheet name=\"Chart\" sheetId=\"3\" r:id=\"rId3\"/>"
                      "<sheet name=\"Front\" sheetId=\"2\" r:id=\"rId4\"/><sheet name=\"Back\" sheetId=\"1\" "
                      "r:id=\"rId1\"/></sheets></workbook>";
        if (name == "xl/_rels/workbook.xml.rels")
            content = "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
                      "<Relationship Id=\"rId1\" Type=\"" + rel + "/worksheet\" Target=\"worksheets/sheet1.xml\"/>"
                      "<Relationship Id=\"rId2\" Type=\"" + rel + "/sharedStrings\" Target=\"/xl/sharedStrings.xml\"/>"
                      "<Relationship Id=\"rId3\" Type=\"" + rel + "/chartsheet\" Target=\"chartsheets/sheet1.xml\"/>"
                      "<Relationship Id=\"rId4\" Type=\"" + rel + "/worksheet\" Target=\"./worksheets/../worksheets/sheet2.xml\"/>"
                      "</Relationships>";
    }
    parts.emplace_back("xl/worksheets/sheet2.xml",
                       "<x:worksheet xmlns:x=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><x:sheetData>"
                       "<x:row r=\"2\"><x:c r=\"A2\"><x:v>7</x:v></x:c><x:c r=\"B2\"><x:v>0.5</x:v></x:c>"
                       "<x:c r=\"C2\"><x:v>5</x:v></x:c></x:row></x:sheetData></x:worksheet>");
    std::string path = dir.file("order.xlsx");
    test::write_zip(path, parts);
    PushoverTable t = read_pushover_workbook(path);
    ASSERT_TRUE(t.ok()) << t.description;
    ASSERT_EQ(t.rows.size(), 1u);
    EXPECT_EQ(t.rows[0].point.Step, 7);
}

TEST(ReadPushoverWorkbook, NotAWorkbookAndMissingFile) {
    TempDir dir;
    test::spill(dir.file("plain.xls"), "Step Displacement\n0 0 0\n");
    EXPECT_EQ(read_pushover_workbook(dir.file("plain.xls")).error, kWorkbookUnreadable);
    test::spill(dir.file("broken.xlsx"), "PK\x03\x04 not really a zip");
    EXPECT_EQ(read_pushover_workbook(dir.file("broken.xlsx")).error, kWorkbookUnreadable);
    test::write_zip(dir.file("nosheet.xlsx"), {{"hello.txt", "hello"}});
    EXPECT_EQ(read_pushover_workbook(dir.file("nosheet.xlsx")).error, kWorkbookUnreadable);
    EXPECT_EQ(read_pushover_workbook(dir.file("none.xlsx")).error, text::kFileNotFound);
}

TEST(ReadPushoverXls, NumbersStringsAndTheEnd) {
    TempDir dir;
    std::string path = dir.file("book.xls");
    test::spill(path, test::xls_bytes({
                                {0, 0, std::string("Step")},
                                {0, 1, std::string("Displacement")},
                                {0, 2, std::string("Base Force")},
                                {1, 0, 0.0},
                                {1, 1, -0.0414},
                                {1, 2, 0.0},
                                {2, 0, 1.0},
                                {2, 1, 1.0386},
                                {2, 2, 73688.56},
                                {3, 0, 3.5},
                                {3, 1, std::string("n/a")},
                                {3, 2, 1.0 / 3.0},
                                // row 5 has no step: the table ends
                                {4, 1, 9.0},
                                {5, 0, 5.0},
                            }));
    PushoverTable t = read_pushover_workbook(path);
    ASSERT_TRUE(t.ok()) << t.description;
    ASSERT_EQ(t.rows.size(), 3u);
    EXPECT_EQ(t.rows[0].displacement_text, "-0.0414");
    EXPECT_EQ(t.rows[1].force_text, "73688.56");
    EXPECT_EQ(t.rows[2].point.Step, 4);
    EXPECT_EQ(t.rows[2].displacement_text, "n/a");
    EXPECT_EQ(t.rows[2].point.Displacement, 0.0);
    EXPECT_EQ(t.rows[2].force_text, "0.333333333333333");
    EXPECT_EQ(t.points.ubound(), 2);
}

TEST(ReadPushoverXls, StepBeyondSixteenBits) {
    TempDir dir;
    std::string path = dir.file("big.xls");
    test::spill(path, test::xls_bytes({{0, 0, std::string("Step")}, {1, 0, 0.0}, {1, 1, 0.0}, {1, 2, 0.0},
                                             {2, 0, -40000.0}, {2, 1, 1.0}, {2, 2, 2.0}}));
    PushoverTable t = read_pushover_xls(path);
    EXPECT_EQ(t.error, text::kOverflow);
    EXPECT_EQ(t.rows.size(), 1u);
}

}  // namespace
}  // namespace tv::compute
