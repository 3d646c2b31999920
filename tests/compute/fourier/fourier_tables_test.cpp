// The Fourier area's small rules, kept as data in tests/golden/tables/fourier.txt: step counts,
// amplitudes, row texts, export lines, inverse terms, the fast 15-digit round trip, the picks
// of Find Omega and the omega calculator.
#include <gtest/gtest.h>

#include <sstream>

#include "compute/fourier/fast_round15.h"
#include "compute/fourier/fourier_sum.h"
#include "compute/fourier/inverse_sum.h"
#include "compute/fourier/omega_picks.h"
#include "support/tables.h"

namespace tv::compute {
namespace {

using Args = test::TableArgs;
using Result = test::TableResult;
using test::arg;

// The picks on a spectrum of n rows with a floor and peaks "row:amp,..." ("-" for none):
// each pick's row, omega and amplitude.
Result picks(const Args& a) {
    std::vector<double> amp(static_cast<std::size_t>(arg(a, 1)), arg(a, 2));
    std::stringstream peaks(a.at(3) == "-" ? "" : a.at(3));
    for (std::string peak; std::getline(peaks, peak, ',');)
        amp.at(std::stoul(peak) - 1) = test::number(peak.substr(peak.find(':') + 1));
    std::string out;
    for (const OmegaPick& p : find_omegas(amp, arg(a, 4), arg(a, 5), static_cast<std::int32_t>(arg(a, 6))))
        out += (out.empty() ? "" : ", ") + std::to_string(p.row) + " " + test::shortest(p.omega) + " " +
               test::shortest(p.amp);
    return out;
}

TEST(FourierTables, EveryCaseGivesItsResult) {
    test::run_table("fourier.txt", {
        {"steps", [](const Args& a) -> Result { return double(omega_steps(arg(a, 1), arg(a, 2))); }},
        {"accepted", [](const Args& a) -> Result {
             return std::string(omega_steps_accepted(omega_steps(arg(a, 1), arg(a, 2))) ? "yes" : "no");
         }},
        {"amplitude", [](const Args& a) -> Result { return fourier_amplitude(arg(a, 1), arg(a, 2)); }},
        // Row i of a spectrum whose row 0 is zeros and row 1 holds the four numbers.
        {"row_texts", [](const Args& a) -> Result {
             const FourierSpectrum s{{0, arg(a, 2)}, {0, arg(a, 3)}, {0, arg(a, 4)}, {0, arg(a, 5)}};
             const FourierRowTexts t = fourier_row_texts(s, static_cast<std::int32_t>(arg(a, 1)));
             return t.real + " " + t.imag + " " + t.amp + " " + t.omega;
         }},
        {"inverse_term", [](const Args& a) -> Result {
             return inverse_term(arg(a, 1), arg(a, 2), arg(a, 3), arg(a, 4), arg(a, 5), arg(a, 6));
         }},
        // The weight of one picked term (omega 2, Real 3, Imag 4) for deltaOmega and "Omega Stp=".
        {"picked_weight", [](const Args& a) -> Result {
             return picked_inverse_terms({2}, {3}, {4}, arg(a, 1), arg(a, 2)).weight;
         }},
        {"export_line", [](const Args& a) -> Result { return export_line(arg(a, 1), arg(a, 2)); }},
        {"round15_fast", [](const Args& a) -> Result { return round15_fast(arg(a, 1)); }},
        {"picks", picks},
        {"period", [](const Args& a) -> Result { return period_of_omega(arg(a, 1)); }},
        {"pick_period", [](const Args& a) -> Result {
             return pick_period(OmegaPick{static_cast<std::int32_t>(arg(a, 1)), arg(a, 2), arg(a, 3)});
         }},
        {"omega_of_period", [](const Args& a) -> Result { return omega_of_period(arg(a, 1)); }},
        {"transfer", [](const Args& a) -> Result { return double(transfer_omega(arg(a, 1))); }},
    });
}

}  // namespace
}  // namespace tv::compute
