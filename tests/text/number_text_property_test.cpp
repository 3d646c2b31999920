// Randomised checks of the text rules against the C library's own conversions (printf and
// strtod, exact in glibc), over doubles of every magnitude and over texts with blanks inside.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include "text/format.h"
#include "text/number_text.h"
#include "text/rounding.h"
#include "text/runtime_error.h"

namespace tv::text {
namespace {

// What printf writes.
template <class... Values>
std::string printed(const char* format, Values... values) {
    char buf[400];
    std::snprintf(buf, sizeof buf, format, values...);
    return buf;
}

// Any finite double, every exponent equally likely (subnormals included).
double any_double(std::mt19937_64& rng) {
    for (;;) {
        double x = std::bit_cast<double>(rng());
        if (std::isfinite(x)) return x;
    }
}

// A short decimal such as a user types or a table holds: k / 10^d.
double decimal_like(std::mt19937_64& rng) {
    std::uniform_int_distribution<int> digits(1, 17), scale(0, 20);
    std::uint64_t top = 1;
    for (int i = digits(rng); i > 0; --i) top *= 10;
    double k = static_cast<double>(std::uniform_int_distribution<std::uint64_t>(0, top)(rng));
    double x = k / std::pow(10.0, scale(rng));
    return (rng() & 1) ? -x : x;
}

// A binary fraction k / 2^j: exactly a tie when written with j - 1 decimals.
double binary_fraction(std::mt19937_64& rng) {
    std::uniform_int_distribution<int> j(1, 12);
    double k = static_cast<double>(std::uniform_int_distribution<std::int64_t>(-(1 << 22), 1 << 22)(rng));
    return std::ldexp(k, -j(rng));
}

void check_round_trip(double x) {
    const std::string s = to_text(x);
    if (x != 0) {
        ASSERT_EQ(s, printed("%.15G", x)) << std::hexfloat << x;
    }
    double v = 0;
    try {
        v = val(s);
    } catch (const RuntimeError& e) {
        // Next to the largest double the text reads back as an overflow, as the other roads do.
        ASSERT_EQ(e.number(), kOverflow) << s;
        ASSERT_THROW(round15(x), RuntimeError) << s;
        ASSERT_THROW(to_double(s), RuntimeError) << s;
        return;
    }
    ASSERT_EQ(std::bit_cast<std::uint64_t>(round15(x)), std::bit_cast<std::uint64_t>(v)) << s;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(to_double(s)), std::bit_cast<std::uint64_t>(v)) << s;
    ASSERT_EQ(v, std::strtod(s.c_str(), nullptr)) << s;
    // Fifteen digits survive a second trip unchanged, and lie within half a unit of the 15th
    // (at most 5E-15 of x) plus the rounding of the reading (at most 1.2E-16 of x).
    ASSERT_EQ(round15(v), v) << s;
    ASSERT_LE(std::fabs(v - x), std::fabs(x) * 5.12e-15) << s;
}

// Doubles of every magnitude, short decimals and binary fractions, and the 2000 doubles from
// 1.79769313486231E+308 up, whose texts read back as an overflow.
TEST(NumberTextProperty, RoundTripOfDoublesOfAllMagnitudes) {
    std::mt19937_64 rng(20240601), decimals(7);
    double big = 1.79769313486231e308;
    for (int i = 0; i < 200000 && !HasFatalFailure(); ++i) {
        check_round_trip(any_double(rng));
        if (i < 100000) {
            check_round_trip(decimal_like(decimals));
            check_round_trip(binary_fraction(decimals));
        }
        if (i < 2000 && std::isfinite(big)) {
            check_round_trip(big);
            check_round_trip(-big);
            big = std::nextafter(big, INFINITY);
        }
    }
}

TEST(FormatProperty, FixedDecimalsMatchPrintf) {
    std::mt19937_64 rng(11);
    std::uniform_int_distribution<int> decimals(0, 8);
    for (int i = 0; i < 100000; ++i) {
        const double x = (i % 2) ? decimal_like(rng) : binary_fraction(rng);
        const int d = decimals(rng);
        std::string expected = printed("%.*f", d, x);
        if (expected.find_first_not_of("-0.") == std::string::npos && expected[0] == '-') expected.erase(0, 1);
        ASSERT_EQ(format_fixed(x, d), expected) << std::hexfloat << x << " " << d;
        const double r = round_to(x, d);
        ASSERT_EQ(r, std::strtod(expected.c_str(), nullptr)) << expected;
        ASSERT_FALSE(r == 0 && std::signbit(r));
    }
}

// A random number text and the same with blanks and tabs inside and junk behind.
struct NoisyNumber {
    std::string clean, noisy;
};

NoisyNumber noisy_number(std::mt19937_64& rng) {
    auto coin = [&] { return (rng() & 1) != 0; };
    auto digits = [&](int max) {
        std::string s;
        for (int n = static_cast<int>(rng() % max) + 1; n > 0; --n) s += static_cast<char>('0' + rng() % 10);
        return s;
    };
    std::string c;
    if (coin()) c += coin() ? "-" : "+";
    if (coin()) {
        c += digits(20);
        if (coin()) c += "." + (coin() ? digits(20) : std::string());
    } else {
        c += "." + digits(20);
    }
    if (coin()) c += std::string(coin() ? "e" : "E") + (coin() ? "-" : "") + digits(3);
    NoisyNumber out{c, {}};
    for (char ch : c) {
        while (rng() % 4 == 0) out.noisy += (rng() & 1) ? ' ' : '\t';
        out.noisy += ch;
    }
    static const char* junk[] = {"", " kN", "x", ",5", "/2", " apples", "..", "%", "\r\n"};
    out.noisy += junk[rng() % (sizeof junk / sizeof *junk)];
    return out;
}

TEST(ValProperty, BlanksInsideAndJunkBehindDoNotChangeTheNumber) {
    std::mt19937_64 rng(5);
    for (int i = 0; i < 100000; ++i) {
        const NoisyNumber n = noisy_number(rng);
        double expected = std::strtod(n.clean.c_str(), nullptr);
        if (std::isinf(expected)) {
            ASSERT_THROW(val(n.noisy), RuntimeError) << n.noisy;
            continue;
        }
        if (expected == 0) expected = 0;  // the texts never read as -0
        const double got = val(n.noisy);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(got), std::bit_cast<std::uint64_t>(expected)) << '"' << n.noisy << '"';
        ASSERT_EQ(std::bit_cast<std::uint64_t>(to_double(n.clean)), std::bit_cast<std::uint64_t>(expected)) << n.clean;
    }
}

}  // namespace
}  // namespace tv::text
