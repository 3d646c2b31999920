#include "windows/capacity/demand_table.h"

#include "compute/capacity/demand_spectrum.h"
#include "compute/spectra/period_grid.h"
#include "text/number_text.h"
#include "text/runtime_error.h"
#include "windows/capacity/step_table.h"

namespace tv::windows {

SaTableOutcome calculare_sa(TextTable& FG2, text::DoubleArray& saAtStep, const TextTable& Fg,
                            const text::DoubleArray& designAux, const text::DoubleArray& designSa, double tend,
                            double xstep) {
    FG2.clear();
    if (xstep == 0.0) return SaTableOutcome::zero_step;
    const double L = text::div(tend, xstep);
    const long upper = text::index_of(L);
    if (upper < 1) text::raise(text::kSubscript);
    saAtStep.redim(upper);
    const long R = Fg.rows();
    FG2.set_rows(text::index_of(L + 1.0));

    for (long i = 1; i <= R - 1; ++i) {
        const double q = text::val(Fg.text(i, 1));
        compute::search_sa(designAux, designSa, q, [&](double v) { FG2.set_text(i, 1, text::to_text(v)); });
    }
    for (long i = 1; i <= L - 1; ++i) {
        const double q = compute::period_of_index(i, xstep);
        compute::search_sa(designAux, designSa, q, [&](double v) { FG2.set_text(i, 3, text::to_text(v)); });
    }
    for (long i = 1; i <= R - 1; ++i) FG2.set_text(i, 0, Fg.text(i, 1));
    for (long i = 1; i <= L; ++i) {
        FG2.set_text(i, 2, text::to_text(compute::period_of_index(i, xstep)));
        saAtStep(i) = text::val(FG2.text(i, 3));
    }

    static const char* const headings[4] = {"Teff", "Sa", "T", "SA"};
    static const int widths[4] = {1000, 2000, 1000, 2000};
    for (long c = 0; c < 4; ++c) {
        FG2.set_text(0, c, headings[c]);
        FG2.set_col_width(c, widths[c]);
        FG2.set_col_alignment(c, kLeftCentre);
    }
    return SaTableOutcome::filled;
}

void input_teff_from_capacity(TextTable& FG2, const TextTable& Fg, const std::string& skipText) {
    const double skip = text::val(skipText);
    for (long r = 1; r < FG2.rows(); ++r) FG2.set_text(r, 0, "");
    const double n = capacity_end_row(Fg, skip);
    for (long k = 1; k <= n - skip - 1; ++k) FG2.set_text(k, 0, Fg.text_at(skip + k, 1));
}

}  // namespace tv::windows
