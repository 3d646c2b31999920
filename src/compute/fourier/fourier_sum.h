#pragma once
// The direct Fourier sum of a record over a grid of omegas, every partial sum kept to the 15
// significant digits of the table cell that holds it.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// The window that calls the sum also uses the inverse sum, the picks and their constants.
#include "compute/fourier/inverse_sum.h"
#include "compute/fourier/omega_picks.h"

namespace tv::compute {

/// Omega counts from this one on are refused ("Steps are too many..."): n = 12001 at most.
inline constexpr std::int32_t kOmegaStepLimit = 12002;

/// n = omegaLim / deltaOmega to the nearest whole number, halves to even (both in rad/s).
/// Failure: deltaOmega 0 raises 11 (6 for 0 / 0), a count beyond 32 bits 6.
std::int32_t omega_steps(double omegaLim, double deltaOmega);

/// Whether a transform of n omegas may run: n below kOmegaStepLimit.
inline bool omega_steps_accepted(std::int32_t n) { return n < kOmegaStepLimit; }

/// The samples of the sum: line numbers j (seconds are j * dt, counted from line 0) and the
/// values x(j), in the order the loop takes them.
struct FourierSamples {
    std::vector<double> j;
    std::vector<double> x;
};

/// The lines of a For loop from `first` to `last` by steps of 1 (j = first, first + 1, ...
/// while j <= last), with x(j) = x_of_line(j), the number of the source cell of line j.
/// Failure: whatever x_of_line raises.
FourierSamples fourier_samples(double first, double last, const std::function<double(double line)>& x_of_line);

/// The peak the window remembers across runs: of equal amplitudes the first stands.
struct FourierPeak {
    double omega = 0;  // rad/s
    double amp = 0;
};

/// One transform, indices 0..n (index 0 stays 0).
struct FourierSpectrum {
    std::vector<double> real;   // Real(i), 15 digits: what the window keeps in accelX1
    std::vector<double> imag;   // Imag(i): accelY1
    std::vector<double> omega;  // omega(i) = omega(i - 1) + deltaOmega, from 0
    std::vector<double> amp;    // Amp(i) = (Imag^2 + Real^2)^0.5, unrounded
};

/// The direct sum: for i = 1..n and each sample j in order,
///   Real(i) = round15(Real(i) + dt * x(j) * cos(j * omega * dt)),
///   Imag(i) = round15(Imag(i) + dt * x(j) * sin(j * omega * dt)),
/// evaluated left to right with std::cos and std::sin; then Amp(i), and `peak` takes omega(i)
/// and Amp(i) when its amplitude is below Amp(i). On the calling thread, for i = 1..n in
/// order: `sums_done(i)` once Real(i) and Imag(i) are complete, before the amplitude (the
/// window shows the sums first, so an amplitude beyond the range stops with them shown), then
/// `omega_done(i)` after Amp(i) and the peak (the window writes the row, moves its bar and lets
/// events run there). Omegas are summed several at a time on all processors; results are
/// those of the plain loop bit for bit. The caller checks omega_steps_accepted first. `out` is
/// made 0..max(n, 0).
/// Failure: 6 when a value overflows, raised in omega order: rows before i are complete and
/// reported; a sum of row i that overflows leaves its sums as far as they got, unreported.
void fourier_transform(const FourierSamples& samples, double dt, double deltaOmega, std::int32_t n,
                       FourierSpectrum& out, FourierPeak& peak,
                       const std::function<void(std::int32_t i)>& omega_done = {},
                       const std::function<void(std::int32_t i)>& sums_done = {});

/// Amp = (Imag^2 + Real^2)^0.5, the power as written (std::pow, not sqrt). Failure: 6.
double fourier_amplitude(double real, double imag);

/// The texts of row i of the transform table Grid1 once the row is done: Real and Imag
/// rounded to 5 decimals (columns 0, 1; the arrays keep the longer values), Amp rounded to 4
/// decimals (column 2; accelX2(i) is the number of this text), omega rounded to 2 decimals
/// (column 3). Numbers as the cells write them (15 significant digits).
struct FourierRowTexts {
    std::string real, imag, amp, omega;
};
FourierRowTexts fourier_row_texts(const FourierSpectrum& spectrum, std::int32_t i);

}  // namespace tv::compute
