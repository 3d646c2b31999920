#include "compute/fourier/fast_round15.h"

#include <bit>
#include <cmath>
#include <cstdint>

#include "text/number_text.h"

namespace tv::compute {

namespace {

using detail::kExactPow10;

// x * 10^k (k from -22 to 22) as hi plus an exact remainder part lo. For k >= 0, hi + lo is the
// product exactly. For k < 0, hi is the rounded quotient and lo = x - hi * 10^-k exactly: it has
// the sign of the quotient's remainder and is zero when hi is exact, which is all that is used.
inline void scaled(double x, int k, double& hi, double& lo) {
    if (k >= 0) {
        const double p = kExactPow10[k];
        hi = x * p;
        lo = std::fma(x, p, -hi);
    } else {
        const double p = kExactPow10[-k];
        hi = x / p;
        lo = -std::fma(hi, p, -x);
    }
}

}  // namespace

double round15_fast(double x) {
    const double a = std::fabs(x);
    // Also sends 0, NaN and infinities to the text conversion.
    if (!(a >= 0x1p-26 && a < 1e36)) return text::round15(x);
    // floor(log10 a) or one less: the binary exponent E times log10(2), rounded down, as
    // (E * 78913) >> 18 (78913 / 2^18 lies just below log10(2); exact over this range of E).
    // In this range k starts within -21..22 and ends within -22..22.
    const int e2 = static_cast<int>(std::bit_cast<std::uint64_t>(a) >> 52) - 1023;
    int k = 14 - ((e2 * 78913) >> 18);
    double hi, lo;
    scaled(a, k, hi, lo);
    if (hi >= 1e15) {
        --k;
        scaled(a, k, hi, lo);
    }
    // hi may have rounded onto a bound; the text conversion settles those cases.
    if (!(hi >= 1e14 && hi < 1e15)) return text::round15(x);
    // In [1e14, 1e15) the spacing of doubles is 2^-6 to 2^-3, so hi - m is exact, a hi that is
    // not half-way lies on the same side of the half as the exact value, and only a hi exactly
    // half-way needs the remainder to decide; an exact half goes to even (nearbyint).
    // Adding and taking away 1.5 * 2^52 rounds hi (below 2^51) to an integer, halves to even.
    double m = (hi + 0x1.8p52) - 0x1.8p52;
    if (std::fabs(hi - m) == 0.5) {
        if (lo > 0)
            m = hi + 0.5;
        else if (lo < 0)
            m = hi - 0.5;
    }
    // m has at most 15 digits and 10^|k| is exact: one correctly rounded operation gives the
    // double nearest to m * 10^-k, which is what reading the 15 digits back gives.
    const double r = k >= 0 ? m / kExactPow10[k] : m * kExactPow10[-k];
    return x < 0 ? -r : r;
}

}  // namespace tv::compute
