#include "compute/capacity/demand_spectrum.h"

#include <gtest/gtest.h>


#include "support/files.h"
#include "support/arrays.h"
#include "support/tables.h"
#include "text/runtime_error.h"
#include "support/errors.h"

namespace tv::compute {
namespace {

// Soil II of the code table: S 1.5, T0 0.1 s, Ts 0.5 s.
const ShortSpectrumConstants kSoilII{1.5, 0.1, 0.5};
const ShortSpectrumConstants kSoilI{1.5, 0.1, 0.4};

// The wizard's spectrum as the ordinate of the fill.
std::function<double(double)> short_of(double A, ShortSpectrumConstants c) {
    return [=](double T) { return short_spectrum(T, A, c); };
}

using tv::test::error_of;
using Args = test::TableArgs;
using Result = test::TableResult;
using test::arg;

// Periods 0.1 .. 0.4 with a repeated 0.2 (index 0 holds 0, 0).
struct Points {
    text::DoubleArray aux{5}, sa{5};
    Points() {
        const double x[] = {0, 0.1, 0.2, 0.2, 0.3, 0.4};
        const double y[] = {0, 1.0, 2.0, 5.0, 3.0, 4.0};
        for (long j = 0; j <= 5; ++j) aux(j) = x[j], sa(j) = y[j];
    }
};

// Sa found at q on the arrays, or none.
Result searched(const text::DoubleArray& aux, const text::DoubleArray& sa, double q) {
    std::optional<double> v;
    search_sa(aux, sa, q, [&](double x) { v = x; });
    return v ? Result(*v) : Result(std::monostate());
}

// The short spectrum, the period and Sa lines read, the search on Points or on lines read, and
// one period's Sa: the cases are data in tests/golden/tables/demand_spectrum.txt.
TEST(DemandSpectrum, EveryCaseGivesItsResult) {
    test::run_table("demand_spectrum.txt", {
        {"short", [](const Args& a) -> Result {
             return short_spectrum(arg(a, 1), arg(a, 2), a.at(3) == "I" ? kSoilI : kSoilII);
         }},
        {"lines", [](const Args& a) -> Result {
             text::DoubleArray aux, sa;
             read_period_sa_lines(std::vector<std::string>(a.begin() + 1, a.end()), aux, sa);
             return test::listed(aux) + " / " + test::listed(sa);
         }},
        // A file of these bytes, or none, read into periods 0..3 holding 0, 7, 0, 0 and Sa 0..3.
        {"file", [](const Args& a) -> Result {
             const test::TempDir dir;
             const std::string path = a.at(1) == "missing" ? dir.file("none.txt") : dir.write("s.txt", a.at(1));
             text::DoubleArray aux(3), sa(3);
             aux(1) = 7.0;
             const int error = error_of([&] { read_period_sa_file(path, aux, sa); });
             return test::listed(aux) + " / " + test::listed(sa) + (error ? " | error " + std::to_string(error) : "");
         }},
        {"search", [](const Args& a) { return searched(Points().aux, Points().sa, arg(a, 1)); }},
        {"search_lines", [](const Args& a) {
             text::DoubleArray aux, sa;
             read_period_sa_lines(std::vector<std::string>(a.begin() + 2, a.end()), aux, sa);
             return searched(aux, sa, arg(a, 1));
         }},
        {"search_never_made", [](const Args& a) { return searched(text::DoubleArray{}, Points().sa, arg(a, 1)); }},
        // The short spectrum of soil I, A 1, filled from tstart to tend by xstep: the count, then
        // index, period and ordinate at 0, 1 and the upper bound; the error raised on the way.
        {"fill", [](const Args& a) -> Result {
             std::int32_t count = 0;
             text::DoubleArray sa, aux;
             const int error = error_of([&] { fill_demand_spectrum(count, sa, aux, arg(a, 1), arg(a, 2), arg(a, 3),
                                                                   short_of(1.0, kSoilI)); });
             std::string out = "count " + std::to_string(count);
             const long last = aux.allocated() ? aux.ubound() : -1;
             for (long i : {0L, 1L, last}) {
                 if (i < 0 || i > last) continue;
                 out += " | " + std::to_string(i) + ": " + test::shortest(aux(i)) + " " + test::shortest(sa(i));
             }
             return out + (error ? " | error " + std::to_string(error) : "");
         }},
        // Sa at period T with tend and xstep, from 9 before.
        {"calculare", [](const Args& a) -> Result {
             double sa = 9.0;
             const Points p;
             calculare_sa_period(sa, p.aux, p.sa, arg(a, 1), arg(a, 2), arg(a, 3));
             return sa;
         }},
    });
}

}  // namespace
}  // namespace tv::compute
