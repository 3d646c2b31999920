// Reading the two component files of a record into the record window's tables.
#include "project_fixture.h"

#include "compute/files/text_file.h"

namespace tv::test {
namespace {

TEST_F(ProjectTest, RealRecordFillsTheTablesWithEveryLineAndThePeaks) {
    std::string x = data_path("records/manjil1990_abbar_L.txt");
    std::string y = data_path("records/manjil1990_abbar_T.txt");
    if (x.empty() || y.empty()) GTEST_SKIP() << "shared data not present";
    platform.input_answers = {"1", "5"};
    open_record(x, y);
    windows::Form1& f = form1();
    EXPECT_EQ(f.Grid1.rows(), 2681);
    EXPECT_EQ(f.Grid2.rows(), 2305);
    EXPECT_EQ(f.xeline.text(), "2304");  // the last file read sets the default last line
    EXPECT_EQ(f.Text1.text(), "0.5145641");
    EXPECT_EQ(f.Text2.text(), "0.4968679");
    EXPECT_EQ(f.xvalue.text(), "0.5145641");
    EXPECT_DOUBLE_EQ(state().peakAccel, 0.5145641);
    EXPECT_EQ(state().componentLetter, "Z");
    EXPECT_EQ(f.Grid1.text(550, 0), f.Grid1.text(550, 1));
    // The Y file is the shorter: Show Diagram hides only the rows each table has.
    program.run([&] { f.Command2.press(); });
    ASSERT_TRUE(platform.runtime_errors.empty());
    EXPECT_TRUE(f.Grid1.row_hidden(2400));
    EXPECT_FALSE(f.Grid2.row_hidden(2304));
    EXPECT_EQ(state().accelY1.ubound(), 2304);
}

TEST_F(ProjectTest, AHeaderNumberOnLineOneWinsOverSmallerSamples) {
    std::string x = write("x.txt", "1999 Chi-Chi\n0.2\n0.5\n");
    std::string y = write("y.txt", "title\n2000 header\n0.25\n-0.75\n");
    platform.input_answers = {"1", "3"};
    open_record(x, y);
    windows::Form1& f = form1();
    EXPECT_EQ(f.Text1.text(), "1999");
    // Line 2 of Y stands before the first data line: not looked at.
    EXPECT_EQ(f.Text2.text(), "0.75");
    EXPECT_EQ(f.xvalue.text(), "1999");
}

TEST_F(ProjectTest, BlankLinesCountAsSamplesOfZeroAndCrLfEndsAreRead) {
    std::string x = write("x.txt", "0.1\r\n\r\n-0.4\r\n");
    std::string y = write("y.txt", "0.3\n\n");
    platform.input_answers = {"1", "1"};
    open_record(x, y);
    windows::Form1& f = form1();
    EXPECT_EQ(f.Grid1.rows(), 4);
    EXPECT_EQ(f.Grid1.text(2, 0), "");
    EXPECT_EQ(f.Grid1.text(3, 0), "-0.4");
    EXPECT_EQ(f.Text1.text(), "0.4");
    EXPECT_EQ(f.Grid2.rows(), 3);
}

TEST_F(ProjectTest, AnEmptyFileLeavesOneRowAndTheOldMaximum) {
    std::string x = write("x.txt", "0.6\n");
    std::string y = write("y.txt", "");
    platform.input_answers = {"1", "1"};
    open_record(x, y);
    windows::Form1& f = form1();
    EXPECT_EQ(f.Grid2.rows(), 1);
    EXPECT_EQ(f.xeline.text(), "0");
    EXPECT_EQ(f.Text2.text(), "");  // curMaxY stayed 0
    EXPECT_EQ(f.xvalue.text(), "0.6");
}

TEST_F(ProjectTest, AThirdFileWhileBothAreInLeavesTheTables) {
    std::string x = write("x.txt", "0.1\n"), y = write("y.txt", "0.2\n"), z = write("z.txt", "9\n9\n9\n");
    platform.input_answers = {"1", "1"};
    open_record(x, y);
    platform.file_answers = {z};
    open();
    EXPECT_EQ(form1().Grid1.rows(), 2);
    EXPECT_EQ(form1().Grid2.rows(), 2);
    EXPECT_EQ(state().componentLetter, "Z");
}

TEST_F(ProjectTest, JunkAndVeryLongLinesReadAsTextWithoutFailing) {
    std::string junk("\x01\x02\xff\xfe", 4);
    std::string x = write("x.txt", junk + "\n" + std::string(200000, 'x') + "\n0.5\n");
    std::string y = write("y.txt", "abc\n0.25\n");
    platform.input_answers = {"1", "1"};
    open_record(x, y);
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_EQ(form1().Grid1.rows(), 4);
    EXPECT_EQ(form1().Grid1.text(2, 0).size(), 200000u);
    EXPECT_EQ(form1().Text1.text(), "0.5");
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

TEST_F(ProjectTest, AnOverflowingHeaderBeforeTheFirstDataLineIsNeverRead) {
    // Lines 2 and 3 stand before the data: their leading numbers would overflow a double.
    std::string x = write("x.txt", "title\n1D999 sec\n9E400\n0.2\n-0.5\n");
    std::string y = write("y.txt", "title\n1D999\n1E999\n0.25\n");
    platform.input_answers = {"1", "4"};
    open_record(x, y);
    EXPECT_TRUE(platform.runtime_errors.empty());
    windows::Form1& f = form1();
    EXPECT_EQ(f.Grid1.rows(), 6);
    EXPECT_EQ(f.Grid1.text(2, 0), "1D999 sec");
    EXPECT_EQ(f.Text1.text(), "0.5");
    EXPECT_EQ(f.Text2.text(), "0.25");
    EXPECT_EQ(state().componentLetter, "Z");
}

TEST_F(ProjectTest, AnOverflowingNumberOnLineOneOrInTheDataIsStillAnOverflow) {
    std::string x = write("x.txt", "1D999\n0.2\n");
    platform.input_answers = {"1", "3"};
    platform.file_answers = {x};
    open();
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].second, "Overflow");

    // Read again, now with the overflow among the data.
    std::string x2 = write("x2.txt", "title\n0.1\n1D999\n");
    platform.file_answers = {x2};
    open();
    ASSERT_EQ(platform.runtime_errors.size(), 2u);
    EXPECT_EQ(platform.runtime_errors[1].second, "Overflow");
}

TEST_F(ProjectTest, AnExportThatCannotBeWrittenIsARunTimeErrorNamingTheFile) {
    std::filesystem::create_directories(dir / "taken.txt");
    program.run([&] { windows::write_export(state(), "missing/out.txt", {"a"}); });
    program.run([&] { windows::write_export(state(), "taken.txt", {"a"}); });
    ASSERT_EQ(platform.runtime_errors.size(), 2u);
    EXPECT_EQ(platform.runtime_errors[0].first, 76);
    EXPECT_EQ(platform.runtime_errors[0].second, "Path not found: " + (dir / "missing/out.txt").string());
    EXPECT_EQ(platform.runtime_errors[1].first, 75);
    EXPECT_EQ(platform.runtime_errors[1].second, "Path/File access error: " + (dir / "taken.txt").string());
    program.run([&] { windows::write_export(state(), "fine.txt", {"a", "b"}); });
    EXPECT_EQ(platform.runtime_errors.size(), 2u);
    EXPECT_EQ(compute::read_text_file((dir / "fine.txt").string()).lines, (std::vector<std::string>{"a", "b"}));
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
