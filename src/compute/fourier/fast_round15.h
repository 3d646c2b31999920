#pragma once
// The 15-digit round trip of a number stored in a text cell, without building the text.
namespace tv::compute {

/// Exactly tv::text::round15(x), that is val(to_text(x)): the double nearest to x rounded to 15
/// significant decimal digits (exact decimal ties to even). Magnitudes from 1E-8 to 1E36 take a
/// fast exact path (one exact product, one integer rounding, one correctly rounded division or
/// multiplication); others, and non-finite values, go through the text conversion.
/// Failure: as round15 (6 for a value that rounds beyond the double range).
double round15_fast(double x);

}  // namespace tv::compute
