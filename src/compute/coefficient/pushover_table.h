#pragma once
// The pushover curve as the readers hand it to the window: the texts of the step table and the
// points array, both as far as the read got.
#include <cstdint>
#include <string>
#include <vector>

#include "compute/files/file_status.h"
#include "text/checked.h"
#include "text/number_text.h"
#include "text/rounding.h"

namespace tv::compute {

/// One step of the curve.
struct PushoverPoint {
    std::int16_t Step = 0;
    double Displacement = 0.0;
    double BaseForce = 0.0;
};

/// One row of the step table: the three texts as they stood in the file, and their numbers.
struct PushoverRow {
    std::string step_text;
    std::string displacement_text;
    std::string force_text;
    PushoverPoint point;
};

/// What a reader leaves behind, after success and after a failure alike. error is 0 when the
/// whole table was read, else the run-time error number that stopped it; a file that could not
/// be read also names its path and the system's reason.
struct PushoverTable : FileStatus {
    /// The rows that reached the step table, in file order.
    std::vector<PushoverRow> rows;
    /// The window's points array as the read leaves it: bounds 0 to 0 (one zeroed point) when no
    /// row was read, else 0 to rows - 1; a failure while converting row n leaves 0 to n with
    /// point n filled as far as it got (the array grows before the conversion).
    text::Array<PushoverPoint> points;

    PushoverTable() { points.redim(0); }
};

namespace detail {

/// One accepted row, converted in the order the old loop did: grow the array, force, then
/// displacement, then the step (nearest 16-bit integer, ties to even; overflow raises 6), then
/// the row goes into the table. `cell(2)` and `cell(3)` give the texts of the other columns
/// and may throw.
template <class Cell>
void add_row(PushoverTable& table, const std::string& step_text, Cell&& cell) {
    long n = static_cast<long>(table.rows.size());
    if (n > 0) table.points.redim_preserve(n);
    std::string force_text = cell(3);
    table.points(n).BaseForce = text::val(force_text);
    std::string displacement_text = cell(2);
    table.points(n).Displacement = text::val(displacement_text);
    table.points(n).Step = text::to_int16(text::val(step_text));
    table.rows.push_back({step_text, displacement_text, force_text, table.points(n)});
}

}  // namespace detail

}  // namespace tv::compute
