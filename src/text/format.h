#pragma once
// Format patterns of the windows: "0", "0.0", "0.00", "0.000", "0.0000", "0.00000000".
#include <string>
#include <string_view>

namespace tv::text {

/// x by a pattern of the form "0" or "0." followed by zeros: fixed decimals, a leading zero,
/// a minus sign where the rounded text is not zero, correctly rounded with exact ties to even.
/// An unknown pattern raises RuntimeError 5.
std::string format(double x, std::string_view pattern);

/// The same with the number of decimals (0..30) given directly; others raise 5.
std::string format_fixed(double x, int decimals);

/// Upper-cased copy (ASCII), for the ".TXT" name rule.
std::string upper(std::string_view s);

/// Save-dialog name rule: ".txt" is added when the upper-cased name holds no ".TXT".
std::string with_txt_extension(const std::string& name);

/// Text trimmed of blanks (spaces only) at both ends, as Trim does.
std::string trim(std::string_view s);

}  // namespace tv::text
