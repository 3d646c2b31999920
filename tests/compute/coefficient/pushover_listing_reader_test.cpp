#include "compute/coefficient/pushover_listing_reader.h"

#include <gtest/gtest.h>

#include "support/workbooks.h"

namespace tv::compute {
namespace {

using Fields = std::array<std::string, 3>;
using test::TempDir;

TEST(SplitListingLine, KeepsLeadingBlanksOfTheSecondAndThirdField) {
    // "  1  0.25   1200  A" -> first character dropped, runs shrunk: "1 0.25 1200 A".
    auto f = split_listing_line("  1  0.25   1200  A");
    ASSERT_TRUE(f);
    EXPECT_EQ(*f, (Fields{"1", " 0.25", " 1200"}));
}

TEST(SplitListingLine, LosesALeadingDigit) {
    auto f = split_listing_line("12 0.5 100 x");
    ASSERT_TRUE(f);
    EXPECT_EQ((*f)[0], "2");
}

TEST(SplitListingLine, NeedsABlankBehindTheThirdField) {
    EXPECT_FALSE(split_listing_line(" 1 0.5 100"));
    auto trailing = split_listing_line(" 1 0.5 100 ");
    ASSERT_TRUE(trailing);
    EXPECT_EQ(*trailing, (Fields{"1", " 0.5", " 100"}));
    auto four = split_listing_line(" 1 0.5 100 7 8 9");
    ASSERT_TRUE(four);
    EXPECT_EQ(*four, (Fields{"1", " 0.5", " 100"}));
}

TEST(SplitListingLine, ABlankIsDroppedOnlyAfterABlankOfTheLine) {
    // The second character is a blank after the non-blank first one: it stays, and the step
    // text becomes empty.
    auto f = split_listing_line("a   1     2    3  4");
    ASSERT_TRUE(f);
    EXPECT_EQ(*f, (Fields{"", " 1", " 2"}));
}

TEST(SplitListingLine, TabsAreNoSeparators) {
    auto f = split_listing_line("\t1\t0.5\t100 x y z");
    ASSERT_TRUE(f);
    EXPECT_EQ(*f, (Fields{"1\t0.5\t100", " x", " y"}));
}

TEST(ParsePushoverListing, SkipsThroughTheHeadingAndBlankLines) {
    std::vector<std::string> lines = {
        "Pushover curve, case PUSH",
        "Step  Displacement  BaseForce  AtoB",
        "",
        "   ",
        "  0   0.0000     0.0   120",
        "  1   0.2500  1200.5   118",
        "  Displacement is not a heading here 1 2",
        "  2   0.7500  2100.0   90",
    };
    PushoverTable t = parse_pushover_listing(lines);
    EXPECT_TRUE(t.ok());
    ASSERT_EQ(t.rows.size(), 4u);
    EXPECT_EQ(t.rows[0].step_text, "0");
    EXPECT_EQ(t.rows[0].displacement_text, " 0.0000");
    EXPECT_EQ(t.rows[1].force_text, " 1200.5");
    EXPECT_DOUBLE_EQ(t.rows[1].point.BaseForce, 1200.5);
    // A later line holding the word is data: its fields read as 0.
    EXPECT_EQ(t.rows[2].step_text, "Displacement");
    EXPECT_EQ(t.rows[2].point.Step, 0);
    EXPECT_EQ(t.rows[3].point.Step, 2);
    EXPECT_DOUBLE_EQ(t.rows[3].point.Displacement, 0.75);
    ASSERT_EQ(t.points.ubound(), 3);
    EXPECT_DOUBLE_EQ(t.points(3).BaseForce, 2100.0);
}

TEST(ParsePushoverListing, LowerCaseHeadingGivesNothing) {
    PushoverTable t = parse_pushover_listing({"Step displacement force x", " 0 0 0 x", " 1 1 1000 x"});
    EXPECT_TRUE(t.ok());
    EXPECT_TRUE(t.rows.empty());
    ASSERT_EQ(t.points.ubound(), 0);
    EXPECT_EQ(t.points(0).Step, 0);
    EXPECT_EQ(t.points(0).Displacement, 0.0);
}

TEST(ParsePushoverListing, StepsRoundHalfToEven) {
    PushoverTable t = parse_pushover_listing({"Displacement", " 2.5 1 2 x", " 3.5 1 2 x", " -0.5 1 2 x"});
    ASSERT_EQ(t.rows.size(), 3u);
    EXPECT_EQ(t.rows[0].point.Step, 2);
    EXPECT_EQ(t.rows[1].point.Step, 4);
    EXPECT_EQ(t.rows[2].point.Step, 0);
}

TEST(ParsePushoverListing, AStepBeyondSixteenBitsStopsWithTheRowsSoFar) {
    PushoverTable t = parse_pushover_listing({"Displacement", " 0 0 0 x", " 40000 1.5 300 x", " 2 2 400 x"});
    EXPECT_EQ(t.error, text::kOverflow);
    ASSERT_EQ(t.rows.size(), 1u);
    // The array grew for the failing row and took its force and displacement.
    ASSERT_EQ(t.points.ubound(), 1);
    EXPECT_EQ(t.points(1).BaseForce, 300.0);
    EXPECT_EQ(t.points(1).Displacement, 1.5);
    EXPECT_EQ(t.points(1).Step, 0);
}

TEST(ReadPushoverListing, CrLfLinesAndLoneCr) {
    TempDir dir;
    test::spill(dir.file("crlf.txt"), "Step Displacement Force X\r\n 0 0 0 a\r\n\r\n 1 0.5 1000 b\r\n");
    PushoverTable t = read_pushover_listing(dir.file("crlf.txt"));
    EXPECT_TRUE(t.ok());
    ASSERT_EQ(t.rows.size(), 2u);
    EXPECT_EQ(t.rows[1].force_text, " 1000");
    EXPECT_EQ(t.rows[1].point.BaseForce, 1000.0);

    test::spill(dir.file("cr.txt"), "Displacement\r 0 0 0 a\r 1 0.5 1000 b\r");
    EXPECT_EQ(read_pushover_listing(dir.file("cr.txt")).rows.size(), 2u);
}

TEST(ReadPushoverListing, MissingFile) {
    TempDir dir;
    PushoverTable t = read_pushover_listing(dir.file("none.txt"));
    EXPECT_EQ(t.error, text::kFileNotFound);
    EXPECT_TRUE(t.rows.empty());
    EXPECT_EQ(t.points.ubound(), 0);
}

}  // namespace
}  // namespace tv::compute
