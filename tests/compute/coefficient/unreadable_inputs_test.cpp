// Inputs that once hung a reader, ate its memory or reached a library fault: each is refused at
// once, through the text reader entry and the workbook reader alike. The two damaged .xls files
// of the shared data are the golden cases coefficient_xls_overread and coefficient_xls_handle_leak.
#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>

#include "compute/coefficient/pushover_workbook_reader.h"
#include "compute/coefficient/xls_cells.h"
#include "compute/files/file_reader.h"
#include "compute/files/text_file.h"
#include "support/fake_platform.h"
#include "support/workbooks.h"

namespace tv::compute {
namespace {

namespace fs = std::filesystem;

struct SpecialInput {
    const char* name;
    std::function<std::string(const test::TempDir& dir)> make;
    int text_error;          // through read_text_file; 0 when the text entry is not asked
    const char* reason;      // of the text entry
    int workbook_error;      // through read_pushover_workbook
    const char* described;   // a part of the workbook reader's description
};

TEST(UnreadableInputs, AreRefusedAtOnceWithTheReason) {
    const std::vector<SpecialInput> inputs = {
        {"endless device", [](const test::TempDir&) { return std::string("/dev/zero"); }, 75, kNotRegularReason, 75,
         "/dev/zero"},
        {"pipe nobody writes",
         [](const test::TempDir& d) {
             ::mkfifo(d.file("pipe").c_str(), 0644);
             return d.file("pipe");
         },
         75, kNotRegularReason, 75, "pipe"},
        {"folder", [](const test::TempDir& d) { return d.file(""); }, 75, "Is a directory", 75, "Path/File access error"},
        {"link loop",
         [](const test::TempDir& d) {
             fs::create_symlink("b", d.file("a"));
             fs::create_symlink("a", d.file("b"));
             return d.file("a");
         },
         53, "Too many levels of symbolic links", 53, "File not found"},
        {"file above the limit",
         [](const test::TempDir& d) {
             fs::resize_file(d.file("huge.txt"), kInputFileLimit + 1);  // sparse: no disk taken
             return d.file("huge.txt");
         },
         75, "File too large (more than 64 MiB)", 75, "huge.txt"},
        {"zip bomb",
         [](const test::TempDir& d) {  // a sheet of 20 MiB of blanks packed into a few kilobytes
             test::write_zip(d.file("bomb.xlsx"), test::xlsx_parts(std::string(20 << 20, ' ')));
             return d.file("bomb.xlsx");
         },
         0, "", kWorkbookUnreadable, "larger than 16 MiB unpacked"},
    };
    test::TempDir dir;
    { std::ofstream(dir.file("huge.txt")); }
    for (const SpecialInput& input : inputs) {
        SCOPED_TRACE(input.name);
        const std::string path = input.make(dir);
        const auto start = std::chrono::steady_clock::now();
        if (input.text_error != 0) {
            const TextFile text = read_text_file(path);
            EXPECT_EQ(text.error, input.text_error);
            EXPECT_EQ(text.reason, input.reason);
            EXPECT_TRUE(text.lines.empty());
        }
        const PushoverTable table = read_pushover_workbook(path);
        EXPECT_EQ(table.error, input.workbook_error);
        EXPECT_NE(table.description.find(input.described), std::string::npos) << table.description;
        EXPECT_TRUE(table.rows.empty());
        // Generous: what is checked is that nothing hangs or inflates gigabytes.
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    }
}

// The handle of a workbook whose worksheet cannot be chosen is closed all the same.
TEST(UnreadableInputs, AFailedXlsOpenLeavesNoMemoryBehind) {
    const std::string path = test::data_path("bad-inputs/xls_handle_leak.xls");
    if (path.empty()) GTEST_SKIP() << "shared data not available";
    xls_cells_answer(path);  // warm up the library's own one-time allocations
    const auto before = static_cast<long long>(mallinfo2().uordblks);
    for (int k = 0; k < 30; ++k) xls_cells_answer(path);
    EXPECT_LT(static_cast<long long>(mallinfo2().uordblks) - before, 256LL << 10);
}

}  // namespace
}  // namespace tv::compute
