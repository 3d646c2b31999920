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

}  // namespace tv::compute
