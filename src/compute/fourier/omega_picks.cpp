#include "compute/fourier/omega_picks.h"

#include <cmath>

#include "compute/fourier/fast_round15.h"
#include "text/checked.h"
#include "text/rounding.h"

namespace tv::compute {

std::vector<OmegaPick> find_omegas(const std::vector<double>& amp, double deltaOmega, double spacing,
                                   std::int32_t rows) {
    std::vector<OmegaPick> picks;
    for (std::int32_t r = 1; r <= rows; ++r) {
        OmegaPick best;  // amplitude 0, omega and coefficients empty
        for (std::size_t i = 1; i <= amp.size(); ++i) {
            const double a = amp[i - 1];
            if (!(a > best.amp)) continue;
            const OmegaPick kept = best;
            best.omega = text::round_to(deltaOmega * static_cast<double>(i), 2);
            for (std::int32_t p = 1; p <= r; ++p) {
                // Grid3 column 3 of row p as a number; row r is still empty.
                const double w = p < r ? (picks[static_cast<std::size_t>(p - 1)].row != 0
                                              ? round15_fast(picks[static_cast<std::size_t>(p - 1)].omega)
                                              : 0.0)
                                       : 0.0;
                if (best.omega != w && std::fabs(w - best.omega) > spacing) {
                    best.amp = a;
                    best.row = static_cast<std::int32_t>(i);
                } else {
                    best = kept;
                    break;
                }
            }
        }
        picks.push_back(best);
        // Row r + 1 meets the same test as row r, whose empty omega is now an earlier pick's:
        // nothing more can be picked.
        if (best.row == 0) break;
    }
    return picks;
}

double period_of_omega(double omega) { return text::round_to(text::div(kTwoPiRounded, omega), 2); }

double pick_period(const OmegaPick& pick) { return period_of_omega(pick.row != 0 ? pick.omega : 0.0); }

double omega_of_period(double T) { return text::div(kTwoPiRounded, T); }

std::int32_t transfer_omega(double omega) { return text::to_int32(omega); }

}  // namespace tv::compute
