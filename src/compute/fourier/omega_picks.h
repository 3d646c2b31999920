#pragma once
// Find Omega: the strongest omegas of the amplitude spectrum, spaced apart; and the period and
// omega conversions of the Fourier window and the omega calculator.
#include <cstdint>
#include <vector>

namespace tv::compute {

/// The rounded 2 pi of the period label, the picks table and the omega calculator.
inline constexpr double kTwoPiRounded = 6.2832;

/// One row of the picks table Grid3.
struct OmegaPick {
    std::int32_t row = 0;  // the transform table's row i of the pick; 0 when nothing could be picked
    double amp = 0;        // its amplitude (the number of Grid1 column 2); 0 when none
    double omega = 0;      // deltaOmega * i rounded to 2 decimals, rad/s
};

/// The picks for rows r = 1..rows (result[r - 1]). amp[i - 1] is the number of Grid1 row i,
/// column 2, for i = 1..n. For each r the rows i run in order; a candidate (amplitude strictly
/// above the best so far) stands only when, against every earlier pick p and against row r
/// itself (empty, so omega 0), its omega differs from p's and lies more than `spacing` away;
/// otherwise the best so far comes back. So an omega at or below the spacing is never picked,
/// and of equal amplitudes the lower omega stands. rows below 1: no picks. The result ends at
/// the first row with no pick, since every row after it has none either.
std::vector<OmegaPick> find_omegas(const std::vector<double>& amp, double deltaOmega, double spacing,
                                   std::int32_t rows);

/// 6.2832 / omega rounded to 2 decimals: the period (s) of the label beside "Rad/Sec,T(s)=" and
/// of Grid3 column 4. Failure: omega 0 raises 11.
double period_of_omega(double omega);

/// Grid3 column 4 of a pick. Failure: a row with no pick divides by its empty omega, which
/// counts as 0: 11.
double pick_period(const OmegaPick& pick);

/// The omega calculator: 6.2832 / T (T in s, rad/s out). Failure: T 0 raises 11 (the window
/// does nothing at 0 and never asks).
double omega_of_period(double T);

/// Transfer: the omega rounded to a whole number, halves to even (12.5664 gives 13).
/// Failure: beyond 32 bits or not finite raises 6.
std::int32_t transfer_omega(double omega);

}  // namespace tv::compute
