#pragma once
// The time step a record's header line declares: "NPTS=  2676, DT=   .0200 SEC" (NGA-West2 and
// the Pacific Engineering files), "NPTS=   5600, dt=  .00500" (2000 database), "DT= .02" alone,
// and the numbers-first form "3930 0.00500 NPTS, DT".
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tv::compute {

struct DeclaredTimeStep {
    /// Time step, s, as the window's box would hold it (15 significant digits); above zero.
    double time_step = 0.0;
    /// The NPTS of the same line; -1 when the line states none.
    std::int64_t points = -1;
    /// 1-based line number; 0 when read from a single line.
    std::int32_t line = 0;
    /// The declaration as written ("DT=   .0200 SEC", "3930 0.00500 NPTS, DT").
    std::string text;
};

/// The declaration in one header line, or nothing. Keys are read in any case; DT must be a
/// word of its own followed by "=" and a number above zero.
std::optional<DeclaredTimeStep> parse_time_step_declaration(std::string_view line);

/// The first time step declared in lines 1 .. first_data_line - 1 of a plain record (lines
/// beyond the file are not looked at), with its line number; nothing when none declares one.
std::optional<DeclaredTimeStep> find_declared_time_step(const std::vector<std::string>& lines,
                                                        std::int32_t first_data_line);

}  // namespace tv::compute
