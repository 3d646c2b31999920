#pragma once
// The demand spectrum of the capacity spectrum method: the short code spectrum of the capacity
// wizard, the period-and-Sa spectrum file, and the interpolation of Sa at given periods.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "text/checked.h"

namespace tv::compute {

/// Plateau factor S and corner periods T0, Ts (s) of the chosen soil and hazard group, as the
/// code spectrum's table gives them.
struct ShortSpectrumConstants {
    double S = 0.0;
    double T0 = 0.0;
    double Ts = 0.0;
};

/// The capacity wizard's short spectrum at period T (s) with scale A, without S0 and without
/// the long-period factor: A (1 + S T / T0) below T0, A (S + 1) up to Ts, then
/// A (S + 1) (Ts / T)^(2/3). A negative T gives 0. Never fails for T0 > 0.
double short_spectrum(double T, double A, const ShortSpectrumConstants& c);

/// "Show Diagram" of both capacity windows: specCount = period_count(tend, xstep), both arrays
/// made anew with indices 1..specCount (index 0 unused), then for each pass k of the period
/// grid from tstart to tend by xstep (repeated addition) designSa(k) = ordinate(T) and
/// designAux(k) = xstep * k: the stored period is that of the index, not the loop's T. The
/// capacity wizard gives its short spectrum, the one-period window the code spectrum.
/// Failure: xstep 0 raises 11 (6 for tend 0 too); specCount below 1 raises 9; a pass beyond
/// specCount raises 9 with the earlier passes stored; whatever `ordinate` raises.
void fill_demand_spectrum(std::int32_t& specCount, text::DoubleArray& designSa, text::DoubleArray& designAux,
                          double tstart, double tend, double xstep, const std::function<double(double T)>& ordinate);

/// The spectrum file's lines into designAux (periods) and designSa (ordinates), indices from 1:
/// per line the word before the first blank or tab is the period, the next word Sa, and the
/// word at the end of the line is Sa again; after each line both arrays grow by one, so the
/// last element stays 0 and the upper bound is the line count + 1. Filled in place.
/// Failure: a number beyond the double range raises 6 with the lines before it stored.
void read_period_sa_lines(const std::vector<std::string>& lines, text::DoubleArray& designAux,
                          text::DoubleArray& designSa);

/// The same from the file at `path`. Failure: text::FileError as read_text_file (53, 75, with
/// the path and the system's reason) before anything is changed; otherwise as
/// read_period_sa_lines.
void read_period_sa_file(const std::string& path, text::DoubleArray& designAux, text::DoubleArray& designSa);

/// One search of Sa at period q, over j = 1 .. ubound(designAux) - 1, calling store(value) on
/// every hit, so the last hit stands: q equal to designAux(j) gives designSa(j); q = 0 gives the
/// line from (0, 0) to point j + 1 at 0; designAux(j) < q < designAux(j + 1) the line between the
/// points. No tolerance: q equal to the last stored period finds nothing. Returns whether
/// anything was found.
/// Failure: a line from (0, 0) to a point at period 0 (the zero tail of a file spectrum)
/// divides by zero and raises 6 or 11; arrays never made raise 9.
template <class Store>
bool search_sa(const text::DoubleArray& designAux, const text::DoubleArray& designSa, double q, Store&& store);

/// calculare_sa of the one-period window: with L = tend / xstep, repeats the search for
/// requestedPeriod L - 1 times into saAtPeriod (zeroed first, left 0 when nothing is found or
/// L - 1 < 1), then searches q = i * xstep for i = 1 .. L - 1 with the results dropped.
/// The caller refuses xstep 0 first ("Error Time Step"); here it raises 11.
void calculare_sa_period(double& saAtPeriod, const text::DoubleArray& designAux, const text::DoubleArray& designSa,
                         double requestedPeriod, double tend, double xstep);

// ---------------------------------------------------------------------------------------------

template <class Store>
bool search_sa(const text::DoubleArray& designAux, const text::DoubleArray& designSa, double q, Store&& store) {
    bool found = false;
    const long last = designAux.ubound() - 1;
    for (long j = 1; j <= last; ++j) {
        const double x1 = designAux(j);
        if (q == x1) {
            store(designSa(j));
            found = true;
        } else if (q == 0.0) {
            const double x2 = designAux(j + 1), y2 = designSa(j + 1);
            store(text::chk(text::div(y2 - 0.0, x2 - 0.0) * (q - 0.0) + 0.0));
            found = true;
        } else if (x1 < q && q < designAux(j + 1)) {
            const double x2 = designAux(j + 1), y1 = designSa(j), y2 = designSa(j + 1);
            store(text::chk(text::div(y2 - y1, x2 - x1) * (q - x1) + y1));
            found = true;
        }
    }
    return found;
}

}  // namespace tv::compute
