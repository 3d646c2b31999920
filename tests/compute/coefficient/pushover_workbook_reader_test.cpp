#include "compute/coefficient/pushover_workbook_reader.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "pushover_table_dump.h"
#include "support/fake_platform.h"
#include "support/workbooks.h"

namespace tv::compute {
namespace {

using test::TempDir;

// A shared-string cell of the sheet XML.
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
        const std::string path = dir.file("book.xls");
        test::spill(path, test::xls_bytes(test::xls_cells({a.begin() + 1, a.end()})));
        return test_dump::dumped(a.at(0) == "xls" ? read_pushover_workbook(path) : read_pushover_xls(path));
    };
    test::run_table("pushover_workbook.txt",
                    {{"xlsx", read}, {"xlsx_bare", read}, {"xls", read_xls}, {"xls_own", read_xls}});
}

// The parts under tests/golden/inputs/xlsx_sheet_order zipped: a chart sheet and then sheet2.xml
// come before sheet1.xml in the workbook's order, and the reader takes sheet2.xml.
TEST(ReadPushoverXlsx, FirstWorksheetInWorkbookOrder) {
    TempDir dir;
    const std::filesystem::path folder = std::filesystem::path(TV_SOURCE_DIR) / "tests/golden/inputs/xlsx_sheet_order";
    std::vector<std::pair<std::string, std::string>> parts;
    for (const auto& e : std::filesystem::recursive_directory_iterator(folder))
        if (e.is_regular_file()) parts.emplace_back(e.path().lexically_relative(folder).string(), test::slurp(e.path()));
    const std::string path = dir.file("order.xlsx");
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
