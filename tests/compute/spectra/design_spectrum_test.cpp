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

// design_spectrum(T, A) of a soil and a hazard group, Show Diagram's loop and the spectrum file:
// the cases are data in tests/golden/tables/design_spectrum.txt.
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
        // A spectrum file of these bytes (or missing, or a folder) read for tEnd and step, from a
        // count of 2 and an array 0..2 holding 0, 9, 0: the count, the array, the error raised.
        {"file", [](const test::TableArgs& a) -> test::TableResult {
             const test::TempDir dir;
             const std::string path = a.at(1) == "missing" ? dir.file("none.txt")
                                      : a.at(1) == "folder" ? dir.path().string()
                                                            : dir.write("spectrum.txt", a.at(1));
             DoubleArray sa(2);
             sa(1) = 9;
             std::int32_t count = 2;
             std::string error;
             try {
                 read_spectrum_file(path, test::arg(a, 2), test::arg(a, 3), sa, count);
             } catch (const RuntimeError& e) {
                 error = " | error " + std::to_string(e.number()) + " " + e.description();
             }
             std::string out = "count " + std::to_string(count) + " | " + test::listed(sa) + error;
             for (std::size_t at; (at = out.find(dir.path().string())) != std::string::npos;)
                 out.replace(at, dir.path().string().size(), "DIR");
             return out;
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

}  // namespace
}  // namespace tv::compute
