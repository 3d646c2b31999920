#include "compute/coefficient/pushover_listing_reader.h"

#include <gtest/gtest.h>

#include "support/workbooks.h"

namespace tv::compute {
namespace {

using Fields = std::array<std::string, 3>;
using test::TempDir;

TEST(SplitListingLine, FieldsAsTheOldSplitLeavesThem) {
    // The first character goes, runs of blanks after a blank shrink to one, the fields after the
    // first keep their leading blank, and a blank must stand behind the third field.
    const struct {
        const char* line;
        Fields fields;
    } cases[] = {
        {"  1  0.25   1200  A", {"1", " 0.25", " 1200"}},
        {"12 0.5 100 x", {"2", " 0.5", " 100"}},  // the leading digit is lost
        {" 1 0.5 100 ", {"1", " 0.5", " 100"}},
        {" 1 0.5 100 7 8 9", {"1", " 0.5", " 100"}},
        {"a   1     2    3  4", {"", " 1", " 2"}},  // the blank after "a" stays: the step is empty
        {"\t1\t0.5\t100 x y z", {"1\t0.5\t100", " x", " y"}},  // tabs are no separators
    };
    for (const auto& c : cases) {
        auto f = split_listing_line(c.line);
        ASSERT_TRUE(f) << c.line;
        EXPECT_EQ(*f, c.fields) << c.line;
    }
    EXPECT_FALSE(split_listing_line(" 1 0.5 100"));
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
