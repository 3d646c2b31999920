#include "compute/spectra/design_spectrum.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <utility>

#include "text/runtime_error.h"
#include "support/arrays.h"
#include "support/errors.h"
#include "support/files.h"
#include "support/tables.h"

namespace tv::compute {
namespace {

using text::DoubleArray;
using text::RuntimeError;

using tv::test::error_of;

// The soil and hazard group of a row's words 1 and 2.
std::pair<SpectrumConstants, HazardGroup> soil_group(const test::TableArgs& a) {
    const Soil soil =
        std::map<std::string, Soil>{{"I", Soil::I}, {"II", Soil::II}, {"III", Soil::III}, {"IV", Soil::IV}}.at(a.at(1));
    const HazardGroup g = a.at(2) == "high" ? HazardGroup::HighVeryHigh : HazardGroup::LowModerate;
    return {spectrum_constants(soil, g), g};
}

// design_spectrum(T, A) of a soil and a hazard group, and Show Diagram's loop: the cases are
// data in tests/golden/tables/design_spectrum.txt.
TEST(DesignSpectrum, WorkedValuesAndBranchEdges) {
    test::run_table("design_spectrum.txt", {
        {"sa", [](const test::TableArgs& a) -> test::TableResult {
             const auto [k, g] = soil_group(a);
             return design_spectrum(test::arg(a, 3), test::arg(a, 4), k, g);
         }},
        // Show Diagram from a count of 7 and an array 0..3: show soil group tStart tEnd step A
        // indices -> the count, the upper bound, the ordinates at the indices, the error raised.
        {"show", [](const test::TableArgs& a) -> test::TableResult {
             const auto [k, g] = soil_group(a);
             DoubleArray sa(3);
             std::int32_t count = 7;
             const int error = error_of([&] {
                 using test::arg;
                 show_design_spectrum(sa, count, arg(a, 3), arg(a, 4), arg(a, 5), arg(a, 6), k, g);
             });
             std::string out = "count " + std::to_string(count) + " ubound " + std::to_string(sa.ubound());
             std::stringstream indices(a.at(7));
             for (std::string i; std::getline(indices, i, ',');)
                 out += " | " + i + ": " + test::shortest(sa(std::stol(i)));
             return out + (error ? " | error " + std::to_string(error) : "");
         }},
    });
}

TEST(DesignSpectrum, ScaleIsAPlainMultiplier) {
    const auto g = HazardGroup::HighVeryHigh;
    const auto k = spectrum_constants(Soil::III, g);
    for (double T : {0.0, 0.05, 0.15, 0.5, 0.7, 1.3, 4.0, 6.0})
        EXPECT_DOUBLE_EQ(design_spectrum(T, 0.35, k, g), 0.35 * design_spectrum(T, 1, k, g)) << T;
    EXPECT_EQ(error_of([&] { design_spectrum(1, 1e308, k, g); }), text::kOverflow);
}

class SpectrumFile : public ::testing::Test {
protected:
    std::string write(const std::string& body) { return dir_.write("spectrum.txt", body); }
    test::TempDir dir_;
};

TEST_F(SpectrumFile, OneOrdinatePerLineByTheLeadingNumber) {
    DoubleArray sa;
    std::int32_t count = 0;
    read_spectrum_file(write("0.5\r\n 0.75 g\r\nabc\n1E-1\r2.5"), 0.1, 0.01, sa, count);
    EXPECT_EQ(count, 10);
    // No number on line 3; a short file leaves the rest 0.
    EXPECT_EQ(test::listed(sa), "0 0.5 0.75 0 0.1 2.5 0 0 0 0 0");
}

TEST_F(SpectrumFile, ExtraLinesAreIgnored) {
    DoubleArray sa;
    std::int32_t count = 0;
    read_spectrum_file(write("1\n2\n3\n4\n5\n"), 0.03, 0.01, sa, count);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(test::listed(sa), "0 1 2 3");
}

TEST_F(SpectrumFile, MissingFileChangesNothing) {
    DoubleArray sa(2);
    sa(1) = 9;
    std::int32_t count = 2;
    try {
        read_spectrum_file(dir_.file("none.txt"), 4, 0.01, sa, count);
        FAIL();
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), text::kFileNotFound);
        EXPECT_EQ(e.description().rfind("File not found: ", 0), 0u);  // with the file's name
    }
    EXPECT_EQ(count, 2);
    EXPECT_EQ(sa(1), 9);
    EXPECT_EQ(error_of([&] { read_spectrum_file(dir_.path().string(), 4, 0.01, sa, count); }), 75);
}

}  // namespace
}  // namespace tv::compute
