// Record files, plain and as networks and databases publish them, read into the record window's
// tables.
#include "project_fixture.h"
#include "windows/project/record_file.h"

namespace tv::test {
namespace {

// The component each list offers first: a horizontal one, never the one X took.
TEST(PresetComponent, HorizontalAndNotTheOneXTook) {
    std::vector<compute::RecordComponent> c(3);
    c[0].name = "L1 (177\u00B0)";
    c[1].name = "V2";
    c[2].name = "T3 (267\u00B0)";
    EXPECT_EQ(windows::preset_component(c, true), 0);
    EXPECT_EQ(windows::preset_component(c, false, 0), 2);
    EXPECT_EQ(windows::preset_component(c, false, 2), 0);
}

TEST_F(ProjectTest, AFileOfSeveralComponentsFillsBothTablesFromTheUsersPick) {
    const std::string bhrc = data_path("records/formats/5523-1.V1");
    if (bhrc.empty()) GTEST_SKIP() << "records data missing";
    platform.input_answers = {"1", "1"};
    platform.choice_answers = {2, 0};
    platform.file_answers.push_back(bhrc);
    open();
    ASSERT_EQ(platform.choices.size(), 2u);
    EXPECT_EQ(platform.choices[0], (std::vector<std::string>{"L1 (177°)", "V2", "T3 (267°)"}));
    EXPECT_EQ(state().componentLetter, "Z");
    windows::Form1& f = form1();
    EXPECT_EQ(f.Xfline.text(), "28");
    EXPECT_EQ(f.xstep.text(), "0.005");
    EXPECT_EQ(f.xeline.text(), "13083");
    // X is T3, the third block; Y is L1. The summary says which conversion was applied.
    EXPECT_NE(f.Grid1.text(28, 0), f.Grid2.text(28, 0));
    ASSERT_FALSE(platform.messages.empty());
    EXPECT_NE(platform.messages.back().text.find("X: 5523-1.V1 (BHRC VOL1DS), T3 (267°)"), std::string::npos);
    EXPECT_NE(platform.messages.back().text.find("G/10 to g: divided by 10"), std::string::npos);
}

TEST_F(ProjectTest, ABadFileIsToldAndTheProjectStaysAsItWas) {
    const std::string bad = write("cut.AT2",
                                  "PEER NGA STRONG MOTION DATABASE RECORD\nx\nACCELERATION TIME SERIES IN UNITS OF G\n"
                                  "NPTS=     12, DT=   .0200 SEC\n  .1E-01  .2E-01  .3E-01  .4E-01  .5E-01\n");
    platform.input_answers = {"1", "5"};
    platform.file_answers.push_back(bad);
    open();
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text.rfind(bad + ", line ", 0), 0u) << platform.messages[0].text;
    EXPECT_EQ(program.if_loaded<windows::Form1>(), nullptr);
    EXPECT_EQ(state().componentLetter, "X");
    EXPECT_EQ(state().fileName, "");
    EXPECT_EQ(state().recordCount, 1);
}

TEST_F(ProjectTest, ADeclaredStepIsOfferedAndNoKeepsTheBox) {
    const std::string x = write("x.txt", "title\nNPTS=  3, DT= .0200 SEC\n0.1\n0.2\n0.3\n");
    const std::string y = write("y.txt", "title\nNPTS=  3, DT= .0100 SEC\n0.1\n0.2\n0.3\n");
    platform.input_answers = {"1", "3"};
    platform.message_answers = {forms::MsgResult::No};
    open_record(x, y);
    EXPECT_EQ(form1().xstep.text(), "0.005");
    ASSERT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(platform.messages[0].text,
              "x.txt declares a time step of 0.02 s (DT= .0200 SEC, line 2); Time Step dt holds 0.005. Take 0.02 s?");
    EXPECT_EQ(platform.messages[0].buttons, forms::MsgButtons::YesNo);
    // The Y file's other step is told; the box stays.
    EXPECT_EQ(platform.messages[1].text,
              "y.txt declares a time step of 0.01 s (DT= .0100 SEC, line 2); Time Step dt holds 0.005.");
}

TEST_F(ProjectTest, AHeaderNumberOnLineOneWinsOverSmallerSamples) {
    open_texts("1999 Chi-Chi\n0.2\n0.5\n", "title\n2000 header\n0.25\n-0.75\n", "3");
    // X's peak 1999, the larger in xvalue; line 2 of Y stands before the first data line: Y's 0.75.
    expect_shown(form1(), "record_header_number");
}

TEST_F(ProjectTest, BlankLinesCountAsSamplesOfZeroAndCrLfEndsAreRead) {
    open_texts("0.1\r\n\r\n-0.4\r\n", "0.3\n\n", "1");
    // X: 0.1, an empty row, -0.4 (peak 0.4); Y: 0.3 and an empty row.
    expect_shown(form1(), "record_blank_lines");
}

TEST_F(ProjectTest, AnEmptyFileLeavesOneRowAndTheOldMaximum) {
    open_texts("0.6\n", "", "1");
    // Y's table holds its heading alone, the last line 0, Text2 empty (curMaxY stayed 0), xvalue 0.6.
    expect_shown(form1(), "record_empty_y");
}

TEST_F(ProjectTest, ANumberTooLargeForADoubleIsAnOverflowAndTheProgramGoesOn) {
    open_x(std::string(400, '9') + "\n");
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].second, "Overflow");
    std::string y = write("y.txt", "0.1\n");
    platform.file_answers = {y};
    open();
    EXPECT_EQ(platform.runtime_errors.size(), 1u);
}

}  // namespace
}  // namespace tv::test
