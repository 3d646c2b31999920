#include "compute/capacity/demand_spectrum.h"

#include <cmath>

#include "compute/capacity/capacity_reader.h"
#include "compute/spectra/period_grid.h"
#include "text/number_text.h"
#include "text/rounding.h"
#include "text/runtime_error.h"

namespace tv::compute {

double short_spectrum(double T, double A, const ShortSpectrumConstants& c) {
    if (0.0 <= T && T < c.T0) return A * (1.0 + c.S * T / c.T0);
    if (c.T0 <= T && T <= c.Ts) return A * (c.S + 1.0);
    if (T >= c.Ts) {
        // Two thirds as the division gives it, not a decimal constant typed short.
        const double two = 2.0, three = 3.0;
        const double exponent = two / three;
        return A * (c.S + 1.0) * std::pow(c.Ts / T, exponent);
    }
    return 0.0;
}

void fill_demand_spectrum(std::int32_t& specCount, text::DoubleArray& designSa, text::DoubleArray& designAux,
                          double tstart, double tend, double xstep, const std::function<double(double T)>& ordinate) {
    specCount = period_count(tend, xstep);
    // The arrays run from 1: an upper bound below 1 is refused as the old ReDim did.
    if (specCount < 1) text::raise(text::kSubscript);
    designSa.redim(specCount);
    designAux.redim(specCount);
    const PeriodGrid grid{tstart, tend, xstep, specCount};
    grid.each([&](long k, double T) {
        designSa(k) = ordinate(T);
        designAux(k) = period_of_index(k, xstep);
    });
}

void read_period_sa_lines(const std::vector<std::string>& lines, text::DoubleArray& designAux,
                          text::DoubleArray& designSa) {
    long j = 1;
    designAux.redim(j);
    designSa.redim(j);
    for (const auto& line : lines) {
        std::string word;
        bool havePeriod = false;
        for (char ch : line) {
            if (ch == '\t' || ch == ' ') {
                if (!havePeriod) {
                    designAux(j) = text::val(word);
                    havePeriod = true;
                } else {
                    designSa(j) = text::val(word);
                    havePeriod = false;
                }
                word.clear();
            } else {
                word += ch;
            }
        }
        designSa(j) = text::val(word);
        j = j + 1;
        designAux.redim_preserve(j);
        designSa.redim_preserve(j);
    }
}

void read_period_sa_file(const std::string& path, text::DoubleArray& designAux, text::DoubleArray& designSa) {
    read_period_sa_lines(detail::read_lines(path), designAux, designSa);
}

void calculare_sa_period(double& saAtPeriod, const text::DoubleArray& designAux, const text::DoubleArray& designSa,
                         double requestedPeriod, double tend, double xstep) {
    const double L = text::div(tend, xstep);
    saAtPeriod = 0.0;
    auto keep = [&saAtPeriod](double v) { saAtPeriod = v; };
    for (long i = 1; i <= L - 1; ++i) search_sa(designAux, designSa, requestedPeriod, keep);
    auto drop = [](double) {};
    for (long i = 1; i <= L - 1; ++i) search_sa(designAux, designSa, period_of_index(i, xstep), drop);
}

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
        search_sa(designAux, designSa, q, [&](double v) { FG2.set_text(i, 1, text::to_text(v)); });
    }
    for (long i = 1; i <= L - 1; ++i) {
        const double q = period_of_index(i, xstep);
        search_sa(designAux, designSa, q, [&](double v) { FG2.set_text(i, 3, text::to_text(v)); });
    }
    for (long i = 1; i <= R - 1; ++i) FG2.set_text(i, 0, Fg.text(i, 1));
    for (long i = 1; i <= L; ++i) {
        FG2.set_text(i, 2, text::to_text(period_of_index(i, xstep)));
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

double capacity_end_row(const TextTable& Fg, double skip) {
    double n = skip;
    do {
        n = n + 1.0;
    } while (!(Fg.text_at(n, 0).empty() || n >= Fg.rows() - 1));
    return n;
}

void input_teff_from_capacity(TextTable& FG2, const TextTable& Fg, const std::string& skipText) {
    const double skip = text::val(skipText);
    for (long r = 1; r < FG2.rows(); ++r) FG2.set_text(r, 0, "");
    const double n = capacity_end_row(Fg, skip);
    for (long k = 1; k <= n - skip - 1; ++k) FG2.set_text(k, 0, Fg.text_at(skip + k, 1));
}

}  // namespace tv::compute
