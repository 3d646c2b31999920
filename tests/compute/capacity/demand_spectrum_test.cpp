#include "compute/capacity/demand_spectrum.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/files.h"
#include "text/runtime_error.h"
#include "support/errors.h"

namespace tv::compute {
namespace {

// Soil II of the code table: S 1.5, T0 0.1 s, Ts 0.5 s.
const ShortSpectrumConstants kSoilII{1.5, 0.1, 0.5};
const ShortSpectrumConstants kSoilI{1.5, 0.1, 0.4};

// The wizard's spectrum as the ordinate of the fill.
std::function<double(double)> short_of(double A, ShortSpectrumConstants c) {
    return [=](double T) { return short_spectrum(T, A, c); };
}

using tv::test::error_of;

TEST(ShortSpectrum, ThreeBranchesWithoutS0AndWithoutN) {
    // Rising branch from A at T = 0, not from S0 A.
    EXPECT_DOUBLE_EQ(short_spectrum(0.0, 0.3, kSoilII), 0.3);
    EXPECT_DOUBLE_EQ(short_spectrum(0.05, 0.3, kSoilII), 0.3 * 1.75);
    // Both corners belong to the plateau 2.5 A.
    EXPECT_DOUBLE_EQ(short_spectrum(0.1, 0.3, kSoilII), 0.75);
    EXPECT_DOUBLE_EQ(short_spectrum(0.5, 0.3, kSoilII), 0.75);
    // Beyond Ts the two-thirds power: 0.75 * 0.5^(2/3) = 0.47247, where the full code form
    // with its long-period factor gives 0.4125.
    EXPECT_NEAR(short_spectrum(1.0, 0.3, kSoilII), 0.4724703937105774, 1e-15);
    EXPECT_EQ(short_spectrum(1.0, 0.3, kSoilII), 0.75 * std::pow(0.5, 2.0 / 3.0));
    EXPECT_EQ(short_spectrum(-0.01, 0.3, kSoilII), 0.0);
}

TEST(FillDemandSpectrum, StoresThePeriodOfTheIndexNotTheLoopPeriod) {
    std::int32_t specCount = 0;
    text::DoubleArray sa, aux;
    fill_demand_spectrum(specCount, sa, aux, 0.01, 4.0, 0.02, short_of(1.0, kSoilI));
    EXPECT_EQ(specCount, 200);
    EXPECT_EQ(aux.ubound(), 200);
    // Pass 1 works at T = 0.01 but stores the period 0.02.
    EXPECT_EQ(aux(1), 0.02);
    EXPECT_DOUBLE_EQ(sa(1), 1.0 + 1.5 * 0.01 / 0.1);
    EXPECT_EQ(aux(200), 4.0);
    EXPECT_GT(sa(200), 0.0);
    EXPECT_EQ(aux(0), 0.0);
}

TEST(FillDemandSpectrum, FailuresOfTheStepAndTheBounds) {
    std::int32_t specCount = 0;
    text::DoubleArray sa, aux;
    EXPECT_EQ(error_of([&] { fill_demand_spectrum(specCount, sa, aux, 0.01, 4.0, 0.0, short_of(1.0, kSoilI)); }),
              text::kDivisionByZero);
    // 0.02 / 0.02: an array 1..1 is taken, 0.005 / 0.02 rounds to 0: an array 1..0 is refused.
    fill_demand_spectrum(specCount, sa, aux, 0.01, 0.02, 0.02, short_of(1.0, kSoilI));
    EXPECT_EQ(aux(1), 0.02);
    EXPECT_EQ(error_of([&] { fill_demand_spectrum(specCount, sa, aux, 0.01, 0.005, 0.02, short_of(1.0, kSoilI)); }),
              text::kSubscript);
    // Starting too low runs one pass more than the array holds; the earlier passes stay.
    EXPECT_EQ(error_of([&] { fill_demand_spectrum(specCount, sa, aux, 0.0, 0.1, 0.02, short_of(1.0, kSoilI)); }),
              text::kSubscript);
    EXPECT_EQ(specCount, 5);
    EXPECT_EQ(aux(5), 0.1);
}

TEST(ReadPeriodSaLines, OneOrTwoSeparatorsWorkThreeDoNot) {
    text::DoubleArray aux, sa;
    read_period_sa_lines({"0.1\t0.5", "0.2  0.6", "0.3   0.7", "0.4 \t0.8"}, aux, sa);
    ASSERT_EQ(aux.ubound(), 5);
    EXPECT_EQ(aux(1), 0.1);
    EXPECT_EQ(sa(1), 0.5);
    EXPECT_EQ(aux(2), 0.2);
    EXPECT_EQ(sa(2), 0.6);
    // The third separator stores a period of 0 over the period.
    EXPECT_EQ(aux(3), 0.0);
    EXPECT_EQ(sa(3), 0.7);
    EXPECT_EQ(aux(4), 0.4);
    EXPECT_EQ(sa(4), 0.8);
    // Grown after every line: the last element stays 0.
    EXPECT_EQ(aux(5), 0.0);
    EXPECT_EQ(sa(5), 0.0);
}

TEST(ReadPeriodSaFile, MissingFileChangesNothing) {
    test::TempDir dir;
    text::DoubleArray aux(3), sa(3);
    aux(1) = 7.0;
    EXPECT_EQ(error_of([&] { read_period_sa_file((dir.path() / "no.txt").string(), aux, sa); }),
              text::kFileNotFound);
    EXPECT_EQ(aux(1), 7.0);
    std::string path = dir.write("s.txt", "0.1\t0.5\r\n0.2\t0.6\r\n");
    read_period_sa_file(path, aux, sa);
    EXPECT_EQ(aux.ubound(), 3);
    EXPECT_EQ(sa(2), 0.6);
}

// Periods 0.1 .. 0.4 with a repeated 0.2.
struct Points {
    text::DoubleArray aux{5}, sa{5};
    Points() {
        const double x[] = {0, 0.1, 0.2, 0.2, 0.3, 0.4};
        const double y[] = {0, 1.0, 2.0, 5.0, 3.0, 4.0};
        for (long j = 0; j <= 5; ++j) {
            aux(j) = x[j];
            sa(j) = y[j];
        }
    }
    std::optional<double> at(double q) const {
        std::optional<double> v;
        search_sa(aux, sa, q, [&](double x) { v = x; });
        return v;
    }
};

TEST(SearchSa, ExactMatchesAndInterpolationWithoutTolerance) {
    Points p;
    EXPECT_EQ(p.at(0.1), 1.0);
    EXPECT_DOUBLE_EQ(*p.at(0.15), 1.5);
    // A later matching point overwrites the earlier one.
    EXPECT_EQ(p.at(0.2), 5.0);
    EXPECT_DOUBLE_EQ(*p.at(0.25), 4.0);
    // 0.1 + 0.2 is not the stored 0.3: no match, but a point on the line just after it.
    EXPECT_EQ(p.at(0.3), 3.0);
    EXPECT_GT(*p.at(0.1 + 0.2), 3.0);
}

TEST(SearchSa, BlindSpotsAndTheZeroPeriod) {
    Points p;
    // The last stored point is only the right end of an interval.
    EXPECT_FALSE(p.at(0.4));
    EXPECT_FALSE(p.at(0.5));
    // Between 0 and the first period there is no interval.
    EXPECT_FALSE(p.at(0.05));
    EXPECT_EQ(p.at(0.0), 0.0);
}

TEST(SearchSa, ZeroPeriodAgainstTheZeroTailOfAFileFails) {
    text::DoubleArray aux, sa;
    read_period_sa_lines({"0.1 0.5", "0.2 0.6"}, aux, sa);
    // The line from (0, 0) to the empty last point is 0 / 0.
    EXPECT_EQ(error_of([&] { search_sa(aux, sa, 0.0, [](double) {}); }), text::kOverflow);
    EXPECT_EQ(error_of([&] { search_sa(text::DoubleArray{}, sa, 0.1, [](double) {}); }), text::kSubscript);
}

TEST(CalculareSaPeriod, OnePeriodAndItsBlindSpots) {
    Points p;
    double sa = 9.0;
    calculare_sa_period(sa, p.aux, p.sa, 0.25, 4.0, 0.01);
    EXPECT_DOUBLE_EQ(sa, 4.0);
    calculare_sa_period(sa, p.aux, p.sa, 0.4, 4.0, 0.01);
    EXPECT_EQ(sa, 0.0);
    // With tend / xstep = 1 the search never runs.
    calculare_sa_period(sa, p.aux, p.sa, 0.25, 0.01, 0.01);
    EXPECT_EQ(sa, 0.0);
    EXPECT_EQ(error_of([&] { calculare_sa_period(sa, p.aux, p.sa, 0.25, 4.0, 0.0); }), text::kDivisionByZero);
}

}  // namespace
}  // namespace tv::compute
