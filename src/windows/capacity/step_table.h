#pragma once
// The step table Fg of the capacity wizard: the capacity file's texts under their headings,
// and where its rows end.
#include <array>

#include "compute/capacity/capacity_reader.h"
#include "windows/capacity/text_table.h"

namespace tv::windows {

/// Headings of the step table, row 0, columns 0 to 8.
inline const std::array<const char*, 9> kCapacityHeadings = {"Step", "Teff", "Betaeff", "Sd_C", "Sa_C",
                                                             "Sd_d", "Sa_d", "ALPHA", "Pf_fi"};

/// Writes the rows into the step table `Fg` as the reader does: for record n (from 0) the
/// table gets n + 2 rows and row n + 1 the nine texts. No rows leave the table as it was.
void write_capacity_rows(TextTable& Fg, const compute::CapacityTable& table);

/// Writes the headings into row 0 of `Fg` (nine columns, column 0 500 twips wide, all
/// left-centre aligned).
void write_capacity_headings(TextTable& Fg);

/// The end of the capacity rows: n from skip, add 1, read Fg row n column 0, stop when it is
/// empty or n >= rows - 1. Returns n. Failure: 9 when n passes the table.
double capacity_end_row(const TextTable& Fg, double skip);

}  // namespace tv::windows
