#pragma once
// Rounding: to n decimals and to integers, nearest with exact ties to even.
#include <cstdint>
#include <string>

namespace tv::text {

/// x rounded to `decimals` decimals (0..15): the double nearest to the correctly rounded
/// decimal, exact binary ties to even (0.125 -> 0.12, 1.005 -> 1.0 since 1.005 is below).
double round_to(double x, int decimals);

/// Nearest 16-bit integer, ties to even; outside -32768..32767 (or not finite) raises
/// RuntimeError 6 "Overflow".
std::int16_t to_int16(double x);

/// Nearest 32-bit integer, ties to even; overflow raises RuntimeError 6.
std::int32_t to_int32(double x);

/// Int(): the largest whole number not above x.
double floor_int(double x);

/// Integer division a \ b with both operands rounded to 32-bit integers first (ties to even),
/// the quotient truncated toward zero; b rounding to 0 raises RuntimeError 11, an operand or
/// the quotient beyond 32 bits raises 6.
std::int64_t int_div(double a, double b);

/// a Mod b with both operands rounded to 32-bit integers first; the remainder takes the sign
/// of a; b rounding to 0 raises 11.
std::int64_t mod(double a, double b);

}  // namespace tv::text
