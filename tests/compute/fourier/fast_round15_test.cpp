// The fast 15-digit round trip against the text conversion it replaces, bit for bit.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "compute/fourier/fast_round15.h"
#include "text/number_text.h"
#include "text/runtime_error.h"

namespace tv::compute {
namespace {

std::uint64_t bits(double x) { return std::bit_cast<std::uint64_t>(x); }

// Compares one value; returns false (with a message) on a difference.
bool same(double x) {
    const double want = text::round15(x);
    const double got = round15_fast(x);
    if (bits(want) == bits(got)) return true;
    ADD_FAILURE() << "x = " << std::hexfloat << x << " text " << want << " fast " << got;
    return false;
}

TEST(FastRound15, EdgeValues) {
    for (double x : {0.0, 1.0, -1.0, 0.1, 0.2 + 0.1, 1.0 / 3, 2.0 / 3, 1e-8, 9.99999999999999e-9, 1e36,
                     9.999999999999999e35, 123456789012345.0, 1234567890123456.0, 999999999999999.5,
                     99999999999999.95, 0.000123456789012345, 5e-324, 1.797693134862315e308, 1e15, 1e14,
                     100000000000000.5, 100000000000001.5, 0.5, 2.5e-8, 7.0e22, 1e22, 1e23})
        for (double s : {1.0, -1.0}) ASSERT_TRUE(same(s * x));
}

TEST(FastRound15, DecimalTiesAndNeighbours) {
    // Values whose 16th significant digit is 5, exactly or nearly, at many magnitudes.
    std::mt19937_64 rng(15);
    std::uniform_int_distribution<std::int64_t> mantissa(100000000000000, 999999999999999);
    int failures = 0;
    for (int e = -8; e <= 36 && failures < 5; ++e) {
        for (int k = 0; k < 20000 && failures < 5; ++k) {
            const double base = (static_cast<double>(mantissa(rng)) * 10 + 5) * std::pow(10.0, e - 15);
            for (double x : {base, std::nextafter(base, 0.0), std::nextafter(base, 1e300)})
                if (!same(x)) ++failures;
        }
    }
}

TEST(FastRound15, TenMillionRandomValuesOfEveryMagnitude) {
    std::mt19937_64 rng(2800);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    std::uniform_int_distribution<int> exponent(-12, 40);
    int failures = 0;
    for (int k = 0; k < 5'000'000 && failures < 5; ++k) {
        // Random bit patterns: every exponent, subnormals and all.
        double a = std::bit_cast<double>(rng());
        if (std::isfinite(a) && !same(a)) ++failures;
        // Values in and around the fast range.
        double b = unit(rng) * std::pow(10.0, exponent(rng));
        if (!same(b)) ++failures;
    }
    EXPECT_EQ(failures, 0);
}

TEST(FastRound15, OverflowAndNonFiniteAsTheTextConversion) {
    EXPECT_THROW(text::round15(1.7976931348623157e308), text::RuntimeError);
    EXPECT_THROW(round15_fast(1.7976931348623157e308), text::RuntimeError);
    EXPECT_TRUE(std::isnan(round15_fast(std::numeric_limits<double>::quiet_NaN())));
}

}  // namespace
}  // namespace tv::compute
