#pragma once
// Number <-> text, the way the windows store numbers in their text boxes and table cells.
#include <cstdint>
#include <string>
#include <string_view>

namespace tv::text {

/// A double as the windows write it: correctly rounded to 15 significant digits, no trailing
/// zeros, "0.5" / "-0.5", exponent form ("1E-05", "1.5E+15") only below 1E-4 or from 1E15 on.
std::string to_text(double value);

/// Integers as text ("12", "-3").
std::string to_text(std::int64_t value);
inline std::string to_text(int value) { return to_text(static_cast<std::int64_t>(value)); }

/// The leading-number rule: reads sign, digits, decimal point and exponent, skipping blanks,
/// tabs and line feeds before and inside the number, and stops at the first other character.
/// No number gives 0; a number beyond the double range raises 6 "Overflow", one too small
/// gives 0. " - 1 2 . 5" is -12.5, "3 apples" is 3, "abc" is 0, "1e" is 1.
double val(std::string_view text);

/// The strict conversion: the whole text (blanks around it allowed) must be one number, else
/// RuntimeError 13 "Type mismatch". An empty text fails too.
double to_double(std::string_view text);

/// A finite number typed whole ("0.1", "4", "1e-3"), or false: no leading number rule, for
/// settings that must not be half read.
bool strict_number(const std::string& text, double& out);

/// A whole number typed whole, within -1000..1000 (orders and counts of settings), or false.
bool strict_whole(const std::string& text, int& out);

/// value -> to_text -> val for every finite value, without building the text: the 15-digit round
/// trip that every number stored in a box goes through. Like val, raises 6 "Overflow" for the
/// few values next to the largest double whose 15 digits lie beyond it. Not finite: unchanged.
double round15(double value);

}  // namespace tv::text
