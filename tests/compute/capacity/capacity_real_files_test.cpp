// The real capacity curves of ../shared/data/capacity. None of them is in the nine-column
// layout, so the reader must find nothing in them.
#include <gtest/gtest.h>

#include "support/files.h"
#include "compute/capacity/capacity_reader.h"
#include "compute/capacity/demand_spectrum.h"
#include "support/fake_platform.h"

namespace tv::compute {
namespace {

std::string need(const std::string& relative) { return tv::test::data_path("capacity/" + relative); }

TEST(RealCapacityFiles, FilesWithoutATeffLineGiveNoRowsAndNoError) {
    for (const char* name : {"pushover.txt", "capacity_spectrum.txt", "capacity_curves_Sd-Sa.csv"}) {
        std::string path = need(name);
        if (path.empty()) GTEST_SKIP() << "capacity data missing";
        CapacityTable t = read_capacity_file(path);
        EXPECT_TRUE(t.ok()) << name;
        EXPECT_TRUE(t.rows.empty()) << name;
    }
}

}  // namespace
}  // namespace tv::compute
