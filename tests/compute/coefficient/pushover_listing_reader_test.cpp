#include "compute/coefficient/pushover_listing_reader.h"

#include <gtest/gtest.h>

#include "pushover_table_dump.h"
#include "support/workbooks.h"

namespace tv::compute {
namespace {

using test::TempDir;

// Lines split into fields, and listings read from their lines and from files: the cases are
// data in tests/golden/tables/pushover_listing.txt.
TEST(ParsePushoverListing, EveryListingGivesItsTable) {
    test::run_table("pushover_listing.txt",
                    {{"split", [](const test::TableArgs& a) -> test::TableResult {
                          const auto f = split_listing_line(a.at(1));
                          if (!f) return std::monostate();
                          return "[" + (*f)[0] + "][" + (*f)[1] + "][" + (*f)[2] + "]";
                      }},
                     {"listing", [](const test::TableArgs& a) -> test::TableResult {
                          return test_dump::dumped(parse_pushover_listing({a.begin() + 1, a.end()}));
                      }},
                     // A file of these bytes read, or a file that is not there (DIR/none.txt).
                     {"file", [](const test::TableArgs& a) -> test::TableResult {
                          TempDir dir;
                          const bool missing = a.at(1) == "missing";
                          std::string out = test_dump::dumped(
                              read_pushover_listing(missing ? dir.file("none.txt") : dir.write("l.txt", a.at(1))));
                          if (missing) out.replace(out.find(dir.path().string()), dir.path().string().size(), "DIR");
                          return out;
                      }}});
}

}  // namespace
}  // namespace tv::compute
