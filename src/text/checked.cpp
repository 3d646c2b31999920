#include "text/checked.h"

#include <cmath>

namespace tv::text {

double pow_(double a, double b) {
    if (a < 0.0 && std::floor(b) != b) raise(kInvalidCall);
    if (a == 0.0 && b < 0.0) raise(kDivisionByZero);
    return chk(std::pow(a, b));
}

long index_of(double i) {
    if (!std::isfinite(i)) raise(kOverflow);
    double r = std::nearbyint(i);
    if (r < -2147483648.0 || r > 2147483647.0) raise(kOverflow);
    return static_cast<long>(r);
}

}  // namespace tv::text
