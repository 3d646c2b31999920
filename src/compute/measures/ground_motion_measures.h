#pragma once
// Intensity, duration and frequency measures of one acceleration component, with the histories
// a window charts beside them. Samples are in g at a constant time step; results are in SI
// units, with g where practice keeps it (PGA, CAV).
#include <span>
#include <string>
#include <vector>

namespace tv::compute {

/// Standard gravity, m/s^2 per g.
inline constexpr double kStandardGravity = 9.80665;

/// Bracketed duration threshold, g.
inline constexpr double kBracketThreshold = 0.05;

/// All measures of one component. Histories have one value per sample, at t = i * dt.
struct MotionMeasures {
    std::vector<double> velocity;      // m/s, trapezoid integral of the acceleration from rest
    std::vector<double> displacement;  // m, trapezoid integral of the velocity from rest
    std::vector<double> husid;         // Arias intensity up to t over the total, 0..1

    double pga = 0;                // g, max |a|
    double pgv = 0;                // m/s, max |v|
    double pgd = 0;                // m, max |d|
    double arias = 0;              // m/s, pi / (2 g) * integral of a^2 (a in m/s^2)
    double d5_75 = 0;              // s, time from 5 % to 75 % of the Arias intensity
    double d5_95 = 0;              // s, time from 5 % to 95 %
    double bracketed = 0;          // s, first to last sample with |a| >= 0.05 g (0: none)
    double cav = 0;                // g*s, integral of |a|
    double housner = 0;            // m, integral of PSV(T, 5 %) over T = 0.1 .. 2.5 s
    double predominant_period = 0; // s, period of the largest PSA(T, 5 %), T = 0.01 .. 4 s
    double mean_period = 0;        // s, sum(C^2 / f) / sum(C^2), 0.25 Hz <= f <= 20 Hz
};

struct MeasuresOutcome {
    MotionMeasures measures;
    std::string error;  // empty when the measures are there
    bool ok() const { return error.empty(); }
};

/// Every measure of one component (`accel` in g, `dt` in s). Integrals are trapezoid sums;
/// the Husid times are interpolated linearly between samples; spectra come from the exact
/// stepping of a 5 %-damped oscillator, periods every 0.01 s; Fourier amplitudes from a real FFT
/// of the record padded with zeros to a power of two.
/// Failure (a message, no measures): fewer than two samples, a time step that is not a positive
/// number, a sample that is not a finite number, a record of zeros.
MeasuresOutcome ground_motion_measures(std::span<const double> accel, double dt);

/// record_problem's message for a record of zeros only (a pair may hold one such component).
inline constexpr const char* kRecordOfZeros = "the record is all zeros";

/// The message for a component that cannot be measured or processed, empty when it can.
std::string record_problem(std::span<const double> accel, double dt);

}  // namespace tv::compute
