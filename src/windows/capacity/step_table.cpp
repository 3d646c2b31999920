#include "windows/capacity/step_table.h"

namespace tv::windows {

void write_capacity_rows(TextTable& Fg, const compute::CapacityTable& table) {
    if (Fg.cols() < 9) Fg.set_cols(9);
    if (table.rows.empty()) return;
    // Sized as the row by row growth leaves it: cut to two rows by the first record, then one
    // more per record; twice, not once per row, so that a long file stays linear.
    const long n = static_cast<long>(table.rows.size());
    Fg.set_rows(2);
    Fg.set_rows(n + 1);
    for (long r = 0; r < n; ++r)
        for (long c = 0; c < 9; ++c)
            Fg.set_text(r + 1, c, table.rows[static_cast<std::size_t>(r)].fields[static_cast<std::size_t>(c)]);
}

void write_capacity_headings(TextTable& Fg) {
    if (Fg.cols() < 9) Fg.set_cols(9);
    if (Fg.rows() < 1) Fg.set_rows(1);
    for (long c = 0; c < 9; ++c) {
        Fg.set_text(0, c, kCapacityHeadings[static_cast<std::size_t>(c)]);
        Fg.set_col_alignment(c, kLeftCentre);
    }
    Fg.set_col_width(0, 500);
}

double capacity_end_row(const TextTable& Fg, double skip) {
    double n = skip;
    do {
        n = n + 1.0;
    } while (!(Fg.text_at(n, 0).empty() || n >= Fg.rows() - 1));
    return n;
}

}  // namespace tv::windows
