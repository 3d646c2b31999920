#pragma once
// Response spectra: a damped single-degree-of-freedom oscillator run through a record for every
// period of the grid, with the exact stepping for acceleration linear between samples.
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "compute/spectra/period_grid.h"
#include "text/checked.h"

namespace tv::compute {

/// The eight stepping coefficients of one period, damping and time step.
struct OscillatorCoefficients {
    double A11 = 0, A12 = 0, A21 = 0, A22 = 0;
    double B11 = 0, B12 = 0, B21 = 0, B22 = 0;
    double wd = 0;  // damped circular frequency, rad/s
};

/// Coefficients for period T (s), damping ratio zeta (fraction) and time step dt (s). B12's
/// cosine term carries no factor E, and 2 pi and pi are the two constants 6.28318530717958 and
/// 3.14159265358979. Failure: T = 0 or dt = 0 raises 11 (6 for 0 / 0), zeta = 1 or -1 raises 11,
/// |zeta| > 1 raises 5 (square root of a negative number), a result beyond the double range 6.
OscillatorCoefficients oscillator_coefficients(double T, double zeta, double dt);

/// The exact stepping for acceleration linear between samples (Nigam and Jennings 1969): as
/// oscillator_coefficients, with B12's cosine term carrying its factor E. The seed's spectra
/// keep the form above; measures, intensities and rotated spectra use this one, whose error
/// does not grow with T / dt. Failure: as oscillator_coefficients.
OscillatorCoefficients exact_oscillator_coefficients(double T, double zeta, double dt);

/// Relative displacement history of the oscillator stepped by k over the samples a, from rest:
/// x[0] = 0, x[i + 1] after the step from a[i] to a[i + 1] (unit of a times s^2). Nothing is
/// written unless x is as long as a.
void oscillator_displacements(const OscillatorCoefficients& k, std::span<const double> a, std::span<double> x);

/// peaks[j] = the largest |x| over the record a of the oscillator of periods[j] (s), damping
/// zeta, exact stepping from rest; several periods run at a time in the kernel's vector lanes.
/// Failure: RuntimeError as oscillator_coefficients.
void peak_displacements(std::span<const double> a, double dt, double zeta, std::span<const double> periods,
                        std::span<double> peaks);

/// What each period stores, with d the peak displacement and p the peak relative velocity.
enum class SpectrumMeasure {
    PseudoAcceleration,  // wd * wd * d
    Displacement,        // d
    PseudoVelocity,      // sqrt(wd) squared times d, as the old program computed it
    RelativeVelocity,    // p
};

/// The measure chosen by the response spectrum window's tick boxes, in their order of tests:
/// Velocity wins, then Displacement, then Ps.Velocity; none ticked is pseudo acceleration.
SpectrumMeasure measure_from_ticks(bool displacement, bool pseudoVelocity, bool velocity);

/// One record: its settings, its two acceleration histories and the two spectra it fills.
struct RecordSpectra {
    double dt;                          // time step, s
    std::int32_t firstLine;             // first sample index
    std::int32_t lastLine;              // last sample index (never read)
    const text::DoubleArray& accelX;
    const text::DoubleArray& accelY;
    text::DoubleArray& specX;
    text::DoubleArray& specY;
};

/// Response spectra of one record. specX and specY are made anew 0..specCount; then for each
/// period T (tStart, tStart + periodStep, ... by repeated addition, while T <= tEnd, or T >=
/// tEnd for a negative step) the X pass and then the Y pass run from rest over the steps
/// i = firstLine .. lastLine - 2, and their ordinates go to index j = 1, 2, ...;
/// `period_done` is called after each period's two ordinates are stored, in period order.
/// Periods are computed several at a time; the results are those of the plain loop bit for bit.
/// Failure: RuntimeError as oscillator_coefficients, 9 for a sample index outside an
/// acceleration array or j beyond specCount, 6 when the response overflows, 5 for the pseudo
/// velocity of a negative period; everything stored before the failing point stays.
void integrate_record(const RecordSpectra& record, double zeta, const PeriodGrid& grid, SpectrumMeasure measure,
                      const std::function<void()>& period_done = {});

/// integrate_record with the measure asked for before the first period and again after every
/// `period_done`, so a change made while events run counts from the next period on. The
/// acceleration arrays are looked up again after every `period_done` too: one that a handler
/// resized is read where it now lies, and one now too short for the pass fails with 9 at the
/// next period. (Samples rewritten in place, with the array neither moved nor resized, count
/// from the next block of periods.)
void integrate_record(const RecordSpectra& record, double zeta, const PeriodGrid& grid,
                      const std::function<SpectrumMeasure()>& measure, const std::function<void()>& period_done = {});

/// integrate_record for records 1, 2, ... in turn; `record_start(k)` comes before record k's
/// first period, `period_done(k)` after each of its periods.
void integrate_records(const std::vector<RecordSpectra>& records, double zeta, const PeriodGrid& grid,
                       SpectrumMeasure measure, const std::function<void(int)>& record_start = {},
                       const std::function<void(int)>& period_done = {});
/// integrate_records with the measure asked for as integrate_record does.
void integrate_records(const std::vector<RecordSpectra>& records, double zeta, const PeriodGrid& grid,
                       const std::function<SpectrumMeasure()>& measure, const std::function<void(int)>& record_start = {},
                       const std::function<void(int)>& period_done = {});

namespace detail {

/// The instruction sets the integrator can run on; every one gives the same bits.
enum class KernelPath { Automatic, Generic, Avx2, Avx512 };
/// Forces one path (tests and benchmarks); a path the processor lacks falls back to Generic.
void force_kernel_path(KernelPath path);
/// The path the next run takes.
KernelPath kernel_path();

}  // namespace detail

}  // namespace tv::compute
