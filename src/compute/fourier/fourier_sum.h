#pragma once
// The direct Fourier sum of a record at an omega grid, and its inverse, with every partial sum
// kept to 15 significant digits as the table cells that hold it do.
#include <cstdint>
#include <functional>
#include <vector>

namespace tv::compute {

/// Omegas below this count are accepted: n = 12001 at most.
inline constexpr std::int32_t kOmegaStepLimit = 12002;

/// n = omegaLim / deltaOmega to the nearest whole number, halves to even (rad/s both).
/// Failure: deltaOmega 0 raises 11 (6 for 0 / 0), a count beyond 32 bits 6.
std::int32_t omega_steps(double omegaLim, double deltaOmega);

/// The samples of the sum: line numbers j (as the loop runs them, from the first line by steps
/// of 1 while j <= last line) and their values x(j).
struct FourierSamples {
    std::vector<double> j;
    std::vector<double> x;
};

/// For i = 1..n with omega(i) = omega(i - 1) + deltaOmega from 0 (repeated addition):
///   Real(i) = round15(Real(i) + dt * x(j) * cos(j * omega * dt)) and likewise Imag with sin,
/// over the samples in order. real, imag and omega get index 0..n (index 0 stays 0).
/// Omegas are independent and are summed on several threads; the results are those of the
/// plain loop bit for bit. `omega_done(i)` runs on the calling thread for i = 1..n in order.
/// Failure: 6 when a sum leaves the double range (raised at that omega, earlier ones done).
void fourier_sums(const FourierSamples& samples, double dt, double deltaOmega, std::int32_t n,
                  std::vector<double>& real, std::vector<double>& imag, std::vector<double>& omega,
                  const std::function<void(std::int32_t i)>& omega_done = {});

/// Amp = (Imag^2 + Real^2)^0.5. Failure: 6 on overflow.
double fourier_amplitude(double real, double imag);

/// One term of the inverse sum, kept to 15 digits:
/// round15(a + Real * cos(omega * t) * weight + Imag * sin(omega * t) * weight).
double inverse_term(double a, double real, double imag, double omega, double t, double weight);

/// The factor of the inverse integral, 1 / pi with the program's own pi.
inline constexpr double kInversePi = 1 / 3.14159265358979;

/// The rounded 2 pi of the period label and the omega calculator.
inline constexpr double kTwoPiRounded = 6.2832;

}  // namespace tv::compute
