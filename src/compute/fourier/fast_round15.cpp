#include "compute/fourier/fast_round15.h"

#include <cmath>
#include <cstdint>

#include "text/number_text.h"

namespace tv::compute {

namespace {

// The exact powers of ten of a double.
constexpr double kPow10[23] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                               1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// x * 10^k as an exact sum hi + lo (k from -22 to 22; for negative k the quotient's remainder
// gives the low part, which only has to carry the right sign and the exact zero).
inline void scaled(double x, int k, double& hi, double& lo) {
    if (k >= 0) {
        const double p = kPow10[k];
        hi = x * p;
        lo = std::fma(x, p, -hi);
    } else {
        const double p = kPow10[-k];
        hi = x / p;
        lo = -std::fma(hi, p, -x);  // x - hi * p, exactly; its sign tells which side x / p lies
    }
}

}  // namespace

double round15_fast(double x) {
    const double a = std::fabs(x);
    if (!(a >= 1e-8 && a < 1e36)) return text::round15(x);
    // Decimal exponent, possibly one too small; corrected below.
    int e = static_cast<int>(std::floor(std::ilogb(a) * 0.30102999566398120));
    int k = 14 - e;
    double hi, lo;
    scaled(a, k, hi, lo);
    if (hi >= 1e15) {
        --k;
        scaled(a, k, hi, lo);
    } else if (hi < 1e14) {
        ++k;
        scaled(a, k, hi, lo);
    }
    if (k < -22 || k > 22 || hi >= 1e15 || hi < 1e14) return text::round15(x);
    // hi lies in [1e14, 1e15), so its spacing is at least 2^-6 and at most 1/8: hi - r is exact,
    // and only a hi exactly half-way between integers needs the low part to decide.
    double m = std::nearbyint(hi);
    if (std::fabs(hi - m) == 0.5) {
        if (lo > 0)
            m = hi + 0.5;
        else if (lo < 0)
            m = hi - 0.5;
    }
    const double r = k >= 0 ? m / kPow10[k] : m * kPow10[-k];
    return x < 0 ? -r : r;
}

}  // namespace tv::compute
