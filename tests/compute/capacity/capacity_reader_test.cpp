#include "compute/capacity/capacity_reader.h"

#include <gtest/gtest.h>

#include "support/files.h"
#include "text/runtime_error.h"

namespace tv::compute {
namespace {

using Lines = std::vector<std::string>;

TEST(CleanCapacityLine, DropsTheFirstCharacterAndShrinksRunsOfBlanks) {
    EXPECT_EQ(clean_capacity_line("   1   0.5  7"), "1 0.5 7");
    EXPECT_EQ(clean_capacity_line("x1 2"), "1 2");
    EXPECT_EQ(clean_capacity_line(""), "");
    EXPECT_EQ(clean_capacity_line("x"), "");
}

TEST(CleanCapacityLine, TabsBecomeOneBlankOrCollapseWithABlank) {
    EXPECT_EQ(clean_capacity_line(" 1\t2"), "1 2");
    EXPECT_EQ(clean_capacity_line(" 1\t 2"), "1 2");
    // Two tabs give two blanks, an empty field.
    EXPECT_EQ(clean_capacity_line(" 1\t\t2"), "1  2");
    // A blank before a tab stays, and the tab becomes a second blank.
    EXPECT_EQ(clean_capacity_line(" 1 \t2"), "1  2");
    // The last character is kept as it is, even a tab.
    EXPECT_EQ(clean_capacity_line(" 1 2\t"), "1 2\t");
}

const char* const kNine = " 3 0.45 5.1 12.5 0.21 13 0.2 0.9 1.31";

TEST(SplitCapacityLine, CutsNineFieldsKeepingTheirLeadingBlanks) {
    auto f = split_capacity_line(kNine);
    ASSERT_TRUE(f);
    EXPECT_EQ(*f, (CapacityFields{"3", " 0.45", " 5.1", " 12.5", " 0.21", " 13", " 0.2", " 0.9", " 1.31"}));
    CapacityPoint p = capacity_point(*f);
    EXPECT_EQ(p.Step, 3);
    EXPECT_EQ(p.Teff, 0.45);
    EXPECT_EQ(p.Sd_C, 12.5);
    EXPECT_EQ(p.Sa_C, 0.21);
    EXPECT_EQ(p.Pf_fi, 1.31);
}

TEST(SplitCapacityLine, TabSeparatedLineIsReadLikeBlanks) {
    auto f = split_capacity_line("\t3\t0.45\t5.1\t 12.5\t0.21\t13\t0.2\t0.9\t1.31");
    ASSERT_TRUE(f);
    EXPECT_EQ((*f)[0], "3");
    EXPECT_EQ((*f)[3], " 12.5");
    EXPECT_EQ((*f)[8], " 1.31");
}

TEST(SplitCapacityLine, ATrailingBlankIsOneBlankTooMany) {
    EXPECT_FALSE(split_capacity_line(std::string(kNine) + " "));
}

TEST(SplitCapacityLine, TenOrEightColumnsAreDropped) {
    EXPECT_FALSE(split_capacity_line(std::string(kNine) + " 7"));
    EXPECT_FALSE(split_capacity_line(" 3 0.45 5.1 12.5 0.21 13 0.2 0.9"));
    EXPECT_FALSE(split_capacity_line(" 3"));
    EXPECT_FALSE(split_capacity_line(" 3\t0.45"));
}

TEST(SplitCapacityLine, TwoTabsMakeAnEmptyFieldThatShiftsTheLine) {
    EXPECT_FALSE(split_capacity_line(" 3 0.45 5.1 12.5 0.21 13 0.2 0.9\t\t1.31"));
    // With one field fewer the empty field fills the count: the line is kept, shifted.
    auto f = split_capacity_line(" 3 0.45 5.1 12.5 0.21 13\t\t0.9 1.31");
    ASSERT_TRUE(f);
    EXPECT_EQ((*f)[6], " ");
    EXPECT_EQ((*f)[7], " 0.9");
}

TEST(SplitCapacityLine, AStepInTheFirstColumnLosesItsFirstDigit) {
    auto f = split_capacity_line("12 0.45 5.1 12.5 0.21 13 0.2 0.9 1.31");
    ASSERT_TRUE(f);
    EXPECT_EQ((*f)[0], "2");
    EXPECT_EQ(capacity_point(*f).Step, 2);
}

TEST(SplitCapacityLine, AOneDigitStepInTheFirstColumnLeavesFieldZeroEmpty) {
    auto f = split_capacity_line("7 0.45 5.1 12.5 0.21 13 0.2 0.9 1.31");
    ASSERT_TRUE(f);
    EXPECT_EQ(*f, (CapacityFields{"", " 0.45", " 5.1", " 12.5", " 0.21", " 13", " 0.2", " 0.9", " 1.31"}));
    CapacityPoint p = capacity_point(*f);
    EXPECT_EQ(p.Step, 0);
    EXPECT_EQ(p.Teff, 0.45);
    EXPECT_EQ(p.Pf_fi, 1.31);
}

TEST(CapacityPoint, LeadingNumberRuleAndHalfToEvenStep) {
    CapacityFields f{"2.5", " 1.5s", " abc", " -0.5", " 1e2", " 0", " 0", " 0", " 1 2"};
    CapacityPoint p = capacity_point(f);
    EXPECT_EQ(p.Step, 2);
    EXPECT_EQ(p.Teff, 1.5);
    EXPECT_EQ(p.Betaeff, 0.0);
    EXPECT_EQ(p.Sd_C, -0.5);
    EXPECT_EQ(p.Sa_C, 100.0);
    EXPECT_EQ(p.Pf_fi, 12.0);  // blanks inside a number are skipped
    f[0] = "3.5";
    EXPECT_EQ(capacity_point(f).Step, 4);
}

TEST(ParseCapacityLines, SkipsEverythingUpToTheTeffLine) {
    Lines lines{"Pushover Curve - Capacity Spectrum", " 1 2 3 4 5 6 7 8 9", "  Step  Teff  Betaeff ...", kNine};
    CapacityTable t = parse_capacity_lines(lines);
    ASSERT_TRUE(t.ok());
    ASSERT_EQ(t.rows.size(), 1u);
    EXPECT_EQ(t.rows[0].point.Step, 3);
}

TEST(ParseCapacityLines, TeffIsCaseSensitiveAndNoHeaderGivesNoRows) {
    CapacityTable t = parse_capacity_lines({"step teff", kNine});
    EXPECT_TRUE(t.ok());
    EXPECT_TRUE(t.rows.empty());
}

TEST(ParseCapacityLines, BlankLinesDoNotEndTheTable) {
    Lines lines{"Teff", kNine, "", "   ", " 4 0.5 5.2 13 0.22 14 0.21 0.9 1.31"};
    CapacityTable t = parse_capacity_lines(lines);
    ASSERT_EQ(t.rows.size(), 2u);
    EXPECT_EQ(t.rows[1].point.Step, 4);
}

TEST(ParseCapacityLines, MalformedLinesAreDroppedSilently) {
    Lines lines{"Teff", kNine, std::string(kNine) + " ", " 3 0.45", "\t\t", std::string(kNine) + " 10"};
    CapacityTable t = parse_capacity_lines(lines);
    EXPECT_TRUE(t.ok());
    EXPECT_EQ(t.rows.size(), 1u);
}

TEST(ParseCapacityLines, ASecondTeffLineIsData) {
    Lines lines{" Step Teff", " Step Teff Betaeff Sd_C Sa_C Sd_d Sa_d ALPHA Pf_fi", " Step Teff"};
    CapacityTable t = parse_capacity_lines(lines);
    ASSERT_EQ(t.rows.size(), 1u);
    EXPECT_EQ(t.rows[0].fields[1], " Teff");
    EXPECT_EQ(t.rows[0].point.Step, 0);
    EXPECT_EQ(t.rows[0].point.Pf_fi, 0.0);
}

TEST(ParseCapacityLines, AStepBeyondSixteenBitsStopsWithTheRowsSoFar) {
    Lines lines{"Teff", kNine, " 32768 0.5 5.2 13 0.22 14 0.21 0.9 1.31", kNine};
    CapacityTable t = parse_capacity_lines(lines);
    EXPECT_EQ(t.error, text::kOverflow);
    EXPECT_EQ(t.description, "Overflow");
    EXPECT_EQ(t.rows.size(), 1u);
    EXPECT_EQ(parse_capacity_lines({"Teff", " -32768 0 0 0 0 0 0 0 0"}).rows.at(0).point.Step, -32768);
}

TEST(ReadCapacityFile, MissingFileIsError53) {
    test::TempDir dir;
    CapacityTable t = read_capacity_file((dir.path() / "none.txt").string());
    EXPECT_EQ(t.error, text::kFileNotFound);
    EXPECT_TRUE(t.rows.empty());
}

TEST(ReadCapacityFile, CrLfLinesAndTheTableCells) {
    test::TempDir dir;
    std::string path = dir.write("cap.txt",
                                 "Demand Capacity\r\n Step Teff Betaeff Sd_C Sa_C Sd_d Sa_d ALPHA Pf_fi\r\n"
                                 " 0 0.40 5 0 0 0 0 0 1.3\r\n 1 0.42 5 10.5 0.25 11 0.24 0.9 1.3\r\n");
    CapacityTable t = read_capacity_file(path);
    ASSERT_TRUE(t.ok());
    ASSERT_EQ(t.rows.size(), 2u);
    EXPECT_EQ(t.rows[1].fields[8], " 1.3");
}

}  // namespace
}  // namespace tv::compute
