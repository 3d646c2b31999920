#include "compute/coefficient/pushover_workbook_reader.h"

#include <gtest/gtest.h>

#include "pushover_table_dump.h"
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

// Sheets of one worksheet (sheet data XML after the heading row of Step, Displacement and Base
// Force, or "bare" without it, and more shared strings): the cases are data in
// tests/golden/tables/pushover_workbook.txt.
TEST(ReadPushoverXlsx, EverySheetGivesItsTable) {
    TempDir dir;
    auto read = [&](const test::TableArgs& a) -> test::TableResult {
        std::vector<std::string> shared = kHeadings;
        shared.insert(shared.end(), a.begin() + 2, a.end());
        const std::string path = dir.file("book.xlsx");
        test::write_zip(path, test::xlsx_parts((a.at(0) == "xlsx" ? heading_row() : "") + a.at(1), shared));
        return test_dump::dumped(read_pushover_workbook(path));
    };
    // An .xls of the cells "row:column:number" or "row:column:'text" read by the workbook entry
    // (xls) or by the .xls reader itself (xls_own).
    auto read_xls = [&](const test::TableArgs& a) -> test::TableResult {
        std::vector<test::XlsEntry> cells;
        for (std::size_t k = 1; k < a.size(); ++k) {
            const std::size_t c1 = a[k].find(':'), c2 = a[k].find(':', c1 + 1);
            const std::string v = a[k].substr(c2 + 1);
            const test::XlsCell cell = v[0] == '\'' ? test::XlsCell(v.substr(1)) : test::XlsCell(test::number(v));
            cells.push_back({std::stoi(a[k]), std::stoi(a[k].substr(c1 + 1)), cell});
        }
        const std::string path = dir.file("book.xls");
        test::spill(path, test::xls_bytes(cells));
        return test_dump::dumped(a.at(0) == "xls" ? read_pushover_workbook(path) : read_pushover_xls(path));
    };
    test::run_table("pushover_workbook.txt",
                    {{"xlsx", read}, {"xlsx_bare", read}, {"xls", read_xls}, {"xls_own", read_xls}});
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

}  // namespace
}  // namespace tv::compute
