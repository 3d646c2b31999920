#pragma once
// The 15-digit round trip of a number stored in a text cell, without building the text.
namespace tv::compute {

/// Exactly tv::text::round15(x), that is val(to_text(x)): the double nearest to x rounded to 15
/// significant decimal digits, exact decimal ties to even. Magnitudes from 2^-26 (about 1.5E-8)
/// to 1E36 take a fast exact path: x times a power of ten as an exact two-part product (or a
/// quotient with its exact remainder), one rounding to an integer whose ties are decided on the
/// exact value, one correctly rounded division or product by an exact power of ten. Others, and
/// a case the path cannot prove, go through the text conversion.
/// Failure: as round15 (6 for a value that rounds beyond the double range).
double round15_fast(double x);

namespace detail {

/// 10^0 .. 10^22: every one is exact as a double.
inline constexpr double kExactPow10[23] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                           1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                           1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

}  // namespace detail
}  // namespace tv::compute
