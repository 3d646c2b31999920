#include "compute/spectra/design_spectrum.h"

#include <gtest/gtest.h>

#include <map>

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

// design_spectrum(T, A) of a soil and a hazard group: the cases are data in
// tests/golden/tables/design_spectrum.txt.
TEST(DesignSpectrum, WorkedValuesAndBranchEdges) {
    test::run_table("design_spectrum.txt", {{"sa", [](const test::TableArgs& a) -> test::TableResult {
        const Soil soil = std::map<std::string, Soil>{{"I", Soil::I}, {"II", Soil::II}, {"III", Soil::III},
                                                      {"IV", Soil::IV}}.at(a.at(1));
        const HazardGroup g = a.at(2) == "high" ? HazardGroup::HighVeryHigh : HazardGroup::LowModerate;
        return design_spectrum(test::arg(a, 3), test::arg(a, 4), spectrum_constants(soil, g), g);
    }}});
}

TEST(DesignSpectrum, ScaleIsAPlainMultiplier) {
    const auto g = HazardGroup::HighVeryHigh;
    const auto k = spectrum_constants(Soil::III, g);
    for (double T : {0.0, 0.05, 0.15, 0.5, 0.7, 1.3, 4.0, 6.0})
        EXPECT_DOUBLE_EQ(design_spectrum(T, 0.35, k, g), 0.35 * design_spectrum(T, 1, k, g)) << T;
    EXPECT_EQ(error_of([&] { design_spectrum(1, 1e308, k, g); }), text::kOverflow);
}

TEST(DesignSpectrum, ShowDiagramLoop) {
    const auto g = HazardGroup::LowModerate;
    const auto k = spectrum_constants(Soil::II, g);
    DoubleArray sa;
    std::int32_t count = 0;
    show_design_spectrum(sa, count, 0.01, 4, 0.01, 0.2, k, g);
    EXPECT_EQ(count, 400);
    EXPECT_EQ(sa.ubound(), 400);
    EXPECT_EQ(sa(0), 0);  // never written
    EXPECT_EQ(sa(1), design_spectrum(0.01, 0.2, k, g));
    EXPECT_EQ(sa(30), 0.5);  // T near 0.3, on the plateau
    EXPECT_GT(sa(400), 0);   // 400 passes: the sum stays just under 4
    // The loop asks T <= tEnd even for a negative step: from above the end nothing is written.
    show_design_spectrum(sa, count, 2, -1, -0.5, 0.2, k, g);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(sa(1), 0);
}

TEST(DesignSpectrum, ShowDiagramStartAtZeroFailsOnTheLastPass) {
    const auto g = HazardGroup::LowModerate;
    const auto k = spectrum_constants(Soil::IV, g);
    DoubleArray sa;
    std::int32_t count = 0;
    EXPECT_EQ(error_of([&] { show_design_spectrum(sa, count, 0, 4, 0.01, 0.2, k, g); }), text::kSubscript);
    EXPECT_EQ(count, 400);
    EXPECT_DOUBLE_EQ(sa(1), 0.26);  // T = 0 went to index 1
    EXPECT_GT(sa(400), 0);          // everything before the failing pass stays
}

TEST(DesignSpectrum, ShowDiagramZeroStepFailsBeforeTheArray) {
    const auto g = HazardGroup::LowModerate;
    DoubleArray sa(3);
    std::int32_t count = 7;
    EXPECT_EQ(error_of([&] { show_design_spectrum(sa, count, 0.01, 4, 0, 0.2, spectrum_constants(Soil::I, g), g); }),
              text::kDivisionByZero);
    EXPECT_EQ(count, 7);
    EXPECT_EQ(sa.ubound(), 3);
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
