#pragma once
// The pushover text listing: a heading line holding "Displacement", then one step per line
// with blank-separated fields Step, Displacement, Base Force and at least one more.
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "compute/coefficient/pushover_table.h"

namespace tv::compute {

/// The three field texts of one data line, or nothing when the line is dropped.
/// The first character is never copied, runs of blanks shrink to one, and the line needs three
/// blanks after that: the step is the text before the first, the displacement and the force
/// run from one blank to the next and keep their leading blank; the rest is ignored. Only the
/// space is a blank (a tab is an ordinary character).
std::optional<std::array<std::string, 3>> split_listing_line(std::string_view line);

/// Reads listing lines: everything up to and including the first line that holds
/// "Displacement" (case-sensitive) is skipped, then lines blank after trimming are skipped and
/// the others go through split_listing_line. No heading gives an empty table and no error.
/// A failure (a step beyond 16 bits, a number too large) ends the read with the rows so far.
PushoverTable parse_pushover_listing(const std::vector<std::string>& lines);

/// Reads the listing file at `path` (lines end in LF, CR LF or a lone CR).
/// Failure: those of read_text_file (with the path and the system's reason), or those of
/// parse_pushover_listing; the table holds what was read.
PushoverTable read_pushover_listing(const std::string& path);

}  // namespace tv::compute
