#include "compute/coefficient/pushover_listing_reader.h"

#include <gtest/gtest.h>

#include "pushover_table_dump.h"
#include "support/workbooks.h"

namespace tv::compute {
namespace {

using test::TempDir;

// Lines split into fields, and listings read from their lines: the cases are data in
// tests/golden/tables/pushover_listing.txt.
TEST(ParsePushoverListing, EveryListingGivesItsTable) {
    test::run_table("pushover_listing.txt",
                    {{"split", [](const test::TableArgs& a) -> test::TableResult {
                          const auto f = split_listing_line(a.at(1));
                          if (!f) return std::monostate();
                          return "[" + (*f)[0] + "][" + (*f)[1] + "][" + (*f)[2] + "]";
                      }},
                     {"listing", [](const test::TableArgs& a) -> test::TableResult {
                          return test_dump::dumped(parse_pushover_listing({a.begin() + 1, a.end()}));
                      }}});
}

TEST(ReadPushoverListing, CrLfLinesAndLoneCr) {
    TempDir dir;
    test::spill(dir.file("crlf.txt"), "Step Displacement Force X\r\n 0 0 0 a\r\n\r\n 1 0.5 1000 b\r\n");
    EXPECT_EQ(test_dump::dumped(read_pushover_listing(dir.file("crlf.txt"))),
              "[0][ 0][ 0] 0 0 0; [1][ 0.5][ 1000] 1 0.5 1000; ubound 1");

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
