#include "text/rounding.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "text/runtime_error.h"

namespace tv::text {

double round_to(double x, int decimals) {
    if (!std::isfinite(x)) raise(kOverflow);
    if (decimals < 0 || decimals > 15) raise(kInvalidCall);
    char buf[400];
    auto res = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::fixed, decimals);
    double out = 0.0;
    std::from_chars(buf, res.ptr, out);
    if (out == 0.0) out = 0.0;
    return out;
}

namespace {
double nearest(double x) {
    if (!std::isfinite(x)) raise(kOverflow);
    return std::nearbyint(x);  // default rounding mode: nearest, ties to even
}
}  // namespace

std::int16_t to_int16(double x) {
    double r = nearest(x);
    if (r < -32768.0 || r > 32767.0) raise(kOverflow);
    return static_cast<std::int16_t>(r);
}

std::int32_t to_int32(double x) {
    double r = nearest(x);
    if (r < -2147483648.0 || r > 2147483647.0) raise(kOverflow);
    return static_cast<std::int32_t>(r);
}

double floor_int(double x) { return std::floor(x); }

std::int64_t int_div(double a, double b) {
    std::int32_t ia = to_int32(a), ib = to_int32(b);
    if (ib == 0) raise(kDivisionByZero);
    std::int64_t q = static_cast<std::int64_t>(ia) / ib;
    if (q > 2147483647) raise(kOverflow);  // only -2147483648 by -1
    return q;
}

std::int64_t mod(double a, double b) {
    std::int32_t ia = to_int32(a), ib = to_int32(b);
    if (ib == 0) raise(kDivisionByZero);
    return static_cast<std::int64_t>(ia) % ib;
}

}  // namespace tv::text
