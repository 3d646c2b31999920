// The fast 15-digit round trip against the text conversion it replaces, bit for bit, on ten
// million values of every kind: the scalar path and the lane paths of the Fourier kernel.
#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "compute/fourier/fast_round15.h"
#include "compute/fourier/fourier_kernel.h"
#include "text/number_text.h"
#include "text/runtime_error.h"

namespace tv::compute {
namespace {

using detail::FourierPath;

std::uint64_t bits(double x) { return std::bit_cast<std::uint64_t>(x); }

double parse(const std::string& s) {
    double out = 0;
    std::from_chars(s.data(), s.data() + s.size(), out);
    return out;
}

// f(x), or NaN where it raises (the text conversion next to the largest double).
template <class F>
double or_nan(F f, double x) {
    try {
        return f(x);
    } catch (const text::RuntimeError&) {
        return std::numeric_limits<double>::quiet_NaN();
    }
}

// Checks a batch on the scalar path and on every lane path; counts differences (and reports the
// first few).
struct Checker {
    int failures = 0;
    long long checked = 0;
    std::vector<double> batch;

    void add(double x) {
        if (!std::isfinite(x)) return;
        batch.push_back(x);
        if (batch.size() == 4096) flush();
    }
    void fail(const char* what, double x, double want, double got) {
        if (++failures <= 5)
            ADD_FAILURE() << what << ": x = " << std::hexfloat << x << " (" << text::to_text(x) << ") want " << want
                          << " got " << got;
    }
    void flush() {
        std::vector<double> want(batch.size()), lanes(batch.size());
        for (std::size_t k = 0; k < batch.size(); ++k) {
            want[k] = or_nan([](double v) { return text::val(text::to_text(v)); }, batch[k]);
            const double got = or_nan([](double v) { return round15_fast(v); }, batch[k]);
            if (bits(got) != bits(want[k]) && !(std::isnan(got) && std::isnan(want[k])))
                fail("round15_fast", batch[k], want[k], got);
        }
        for (FourierPath path : {FourierPath::Avx2, FourierPath::Avx512}) {
            detail::force_fourier_path(path);
            detail::round15_lanes(batch.data(), batch.size(), lanes.data());
            for (std::size_t k = 0; k < batch.size(); ++k) {
                // The lanes give up (NaN) from 1e300 on, where the conversion could raise.
                if (!(std::fabs(batch[k]) < 1e300)) continue;
                if (bits(lanes[k]) != bits(want[k])) fail("lanes", batch[k], want[k], lanes[k]);
            }
        }
        detail::force_fourier_path(FourierPath::Automatic);
        checked += static_cast<long long>(batch.size());
        batch.clear();
    }
};

// Ten million values: random bit patterns over every exponent, random values in and around the
// fast range, values at and next to decimal ties, next to powers of ten, integers, subnormals.
TEST(FastRound15, TenMillionValuesMatchTheTextConversionBitForBit) {
    Checker c;
    std::mt19937_64 rng(2800);
    std::uniform_int_distribution<std::int64_t> digits15(100000000000000, 999999999999999);
    std::uniform_int_distribution<int> exponent(-40, 60);
    std::uniform_real_distribution<double> unit(1.0, 10.0);

    for (int k = 0; k < 3'000'000; ++k) c.add(std::bit_cast<double>(rng()));  // every exponent
    for (int k = 0; k < 2'000'000; ++k) {
        const double x = unit(rng) * std::pow(10.0, exponent(rng));
        c.add(k % 2 ? x : -x);
    }
    // 16 significant digits ending in 5: the double nearest the tie and its neighbours.
    for (int k = 0; k < 500'000; ++k) {
        const std::string s = std::to_string(digits15(rng)) + "5e" + std::to_string(exponent(rng) - 15);
        const double t = parse(s);
        c.add(t);
        c.add(std::nextafter(t, 0.0));
        c.add(std::nextafter(t, 1e308));
        c.add(-std::nextafter(std::nextafter(t, 1e308), 1e308));
    }
    // Powers of ten and the 15-digit values just below them (9.99999999999999E..), with neighbours.
    for (int e = -330; e <= 308; ++e) {
        for (const char* mantissa : {"1", "9.999999999999995", "9.99999999999999", "9.9999999999999949",
                                     "9.9999999999999951", "1.00000000000000049", "1.0000000000000005"}) {
            double t = parse(std::string(mantissa) + "e" + std::to_string(e));
            for (int step = 0; step < 40; ++step) t = std::nextafter(t, 0.0);
            for (int step = 0; step < 80; ++step) {
                c.add(t);
                t = std::nextafter(t, 1e308);
            }
        }
    }
    // Integers: all magnitudes up to 2^63, and 16- and 17-digit integers ending in 5 or 50.
    for (int k = 0; k < 1'000'000; ++k) {
        const int shift = static_cast<int>(rng() % 63);
        c.add(static_cast<double>(static_cast<std::int64_t>(rng() >> (shift + 1))));
        c.add(static_cast<double>(digits15(rng) * 10 + 5));
    }
    for (std::int64_t m = 100000000000000; m < 100000000000000 + 200'000; ++m) c.add(static_cast<double>(m) + 0.5);
    // Subnormals and the smallest normals.
    for (int k = 0; k < 500'000; ++k) {
        c.add(std::bit_cast<double>(rng() & 0x800fffffffffffffULL));
        c.add(std::bit_cast<double>((rng() & 0x801fffffffffffffULL) | 0x0010000000000000ULL));
    }
    // Around the bounds of the fast paths.
    for (double bound : {0x1p-26, 1e14, 1e15, 1e36, 1e300}) {
        double t = bound;
        for (int step = 0; step < 20'000; ++step) t = std::nextafter(t, 0.0);
        for (int step = 0; step < 40'000; ++step) {
            c.add(t);
            t = std::nextafter(t, 1e308);
        }
    }
    c.flush();
    EXPECT_GE(c.checked, 10'000'000);
    EXPECT_EQ(c.failures, 0);
}

}  // namespace
}  // namespace tv::compute
