#pragma once
// The demand table FG2 of the capacity wizard: Sa at every effective period of the capacity
// steps and at every period step, and the periods taken over from the step table.
#include <string>

#include "text/checked.h"
#include "windows/capacity/text_table.h"

namespace tv::windows {

/// What calculare_sa of the wizard did.
enum class SaTableOutcome { filled, zero_step };

/// calculare_sa of the capacity wizard, into its four-column table FG2 ("Teff", "Sa", "T",
/// "SA"): clears FG2; with xstep 0 stops there (zero_step: the caller shows "Error Time
/// Step"); L = tend / xstep; saAtStep gets indices 1..L and FG2 L + 1 rows (both rounded); for
/// each row i of Fg (1 .. rows - 1) Sa at the Teff of Fg column 1 goes to FG2 column 1 as
/// general text; for i = 1 .. L - 1 Sa at i * xstep to column 3; Fg column 1 is copied to
/// column 0 (no regard to a skip); for i = 1 .. L column 2 gets i * xstep and saAtStep(i) the
/// number of column 3; then the headings, widths and alignment.
/// Failure (RuntimeError, FG2 as far as it got): Fg longer than L rows raises 9 at the table;
/// L below 1 raises 9; the searches' failures.
SaTableOutcome calculare_sa(TextTable& FG2, text::DoubleArray& saAtStep, const TextTable& Fg,
                            const text::DoubleArray& designAux, const text::DoubleArray& designSa, double tend,
                            double xstep);

/// "Input Teff From Capacity": skip = val(skipText); empties column 0 of every FG2 row, finds
/// the end of Fg as the sweep does, and copies Fg row skip + k column 1 to FG2 row k column 0
/// for k = 1 .. n - skip - 1. Column 1 keeps what it held.
/// Failure: RuntimeError 9 when a row is outside either table.
void input_teff_from_capacity(TextTable& FG2, const TextTable& Fg, const std::string& skipText);

}  // namespace tv::windows
