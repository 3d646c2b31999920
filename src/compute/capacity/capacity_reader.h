#pragma once
// The capacity file of the capacity spectrum method: title lines, one line holding "Teff", then
// one step per line in nine columns (Step, Teff, Betaeff, Sd_C, Sa_C, Sd_d, Sa_d, ALPHA, Pf_fi)
// separated by blanks or tabs, with a disposable first character.
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "compute/files/file_status.h"

namespace tv::compute {

/// One step of the capacity curve, in spectral coordinates.
struct CapacityPoint {
    std::int16_t Step = 0;
    double Teff = 0.0;     // effective period, s
    double Betaeff = 0.0;  // as read
    double Sd_C = 0.0;     // spectral displacement, length unit of g
    double Sa_C = 0.0;     // spectral acceleration
    double Sd_d = 0.0;     // as read
    double Sa_d = 0.0;     // as read
    double ALPHA = 0.0;    // as read
    double Pf_fi = 0.0;    // spectral displacement -> roof displacement
};

/// The nine field texts of one line as cut: field 0 without a blank, fields 1 to 8 each with
/// its leading blank.
using CapacityFields = std::array<std::string, 9>;

/// One accepted line: its texts (the cells of the step table) and their numbers.
struct CapacityRow {
    CapacityFields fields;
    CapacityPoint point;
};

/// What a read leaves behind, after success and after a failure alike.
/// error is 0 when the whole file was read, else the run-time error number that stopped it; a
/// file that could not be read also names its path and the system's reason.
struct CapacityTable : FileStatus {
    /// The rows accepted, in file order, up to a failure.
    std::vector<CapacityRow> rows;
};

/// The two cleaning passes. Pass one drops the first character and every blank that follows a
/// blank; pass two drops a tab followed by a blank, turns any other tab into a blank, and keeps
/// the last character as it is.
std::string clean_capacity_line(std::string_view line);

/// Cuts a cleaned text into nine fields at its blanks: exactly eight blanks are needed, else
/// nothing (the line is dropped).
std::optional<CapacityFields> cut_capacity_fields(std::string_view cleaned);

/// Cleaning and cutting of one data line.
std::optional<CapacityFields> split_capacity_line(std::string_view line);

/// The numbers of one cut line: the step by the leading-number rule rounded to 16 bits (ties to
/// even), the rest by the leading-number rule (0 when no number). Throws RuntimeError 6 for a
/// step beyond 16 bits or a number beyond the double range.
CapacityPoint capacity_point(const CapacityFields& fields);

/// Reads the lines of a capacity file. Lines up to and including the first that holds "Teff"
/// (case-sensitive) are skipped; later lines blank after trimming are skipped; the rest go
/// through split_capacity_line, and lines it refuses are dropped without a word. No "Teff"
/// line gives no rows and no error. A failure ends the read with the rows before it.
CapacityTable parse_capacity_lines(const std::vector<std::string>& lines);

/// Reads the capacity file at `path` (lines end in LF, CR LF or a lone CR).
/// Failure: those of read_text_file, or those of parse_capacity_lines; the rows hold what was
/// read.
CapacityTable read_capacity_file(const std::string& path);

namespace detail {
/// The lines of a text file; throws text::FileError (53 or 75, with the path and the system's
/// reason) when it cannot be read.
std::vector<std::string> read_lines(const std::string& path);
}  // namespace detail

}  // namespace tv::compute
