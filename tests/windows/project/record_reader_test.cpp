// Reading the two component files of a record into the record window's tables.
#include "project_fixture.h"

#include "compute/files/text_file.h"

namespace tv::test {
namespace {

TEST_F(ProjectTest, AHeaderNumberOnLineOneWinsOverSmallerSamples) {
    std::string x = write("x.txt", "1999 Chi-Chi\n0.2\n0.5\n");
    std::string y = write("y.txt", "title\n2000 header\n0.25\n-0.75\n");
    platform.input_answers = {"1", "3"};
    open_record(x, y);
    // X's peak 1999, the larger in xvalue; line 2 of Y stands before the first data line: Y's 0.75.
    expect_shown(form1(), "record_header_number");
}

TEST_F(ProjectTest, BlankLinesCountAsSamplesOfZeroAndCrLfEndsAreRead) {
    std::string x = write("x.txt", "0.1\r\n\r\n-0.4\r\n");
    std::string y = write("y.txt", "0.3\n\n");
    platform.input_answers = {"1", "1"};
    open_record(x, y);
    // X: 0.1, an empty row, -0.4 (peak 0.4); Y: 0.3 and an empty row.
    expect_shown(form1(), "record_blank_lines");
}

TEST_F(ProjectTest, AnEmptyFileLeavesOneRowAndTheOldMaximum) {
    std::string x = write("x.txt", "0.6\n");
    std::string y = write("y.txt", "");
    platform.input_answers = {"1", "1"};
    open_record(x, y);
    // Y's table holds its heading alone, the last line 0, Text2 empty (curMaxY stayed 0), xvalue 0.6.
    expect_shown(form1(), "record_empty_y");
}

TEST_F(ProjectTest, ANumberTooLargeForADoubleIsAnOverflowAndTheProgramGoesOn) {
    std::string x = write("x.txt", std::string(400, '9') + "\n");
    platform.input_answers = {"1", "1"};
    platform.file_answers = {x};
    open();
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].second, "Overflow");
    std::string y = write("y.txt", "0.1\n");
    platform.file_answers = {y};
    open();
    EXPECT_EQ(platform.runtime_errors.size(), 1u);
}

TEST(TextFileTest, LinesEndAtLfCrLfOrALoneCr) {
    EXPECT_EQ(compute::split_lines("a\nb\r\nc\rd"), (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(compute::split_lines("a\n\n"), (std::vector<std::string>{"a", ""}));
    EXPECT_TRUE(compute::split_lines("").empty());
    compute::TextFile missing = compute::read_text_file("/nonexistent/tv/file.txt");
    EXPECT_EQ(missing.error, 53);
    EXPECT_NE(missing.description.find("/nonexistent/tv/file.txt"), std::string::npos);
    EXPECT_EQ(missing.reason, "No such file or directory");
    compute::TextFile folder = compute::read_text_file(std::filesystem::temp_directory_path().string());
    EXPECT_EQ(folder.error, 75);
    EXPECT_EQ(folder.reason, "Is a directory");
}

}  // namespace
}  // namespace tv::test
