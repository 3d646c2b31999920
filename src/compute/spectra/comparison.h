#pragma once
// The spectrum comparison: combination of the two components, average over the records,
// target, the band search for the scale factor, and the whole two-pass calculation.
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "text/checked.h"

namespace tv::compute {

/// How the two components of a record become one spectrum.
enum class CombinationRule {
    Srss,             // sqrt(X^2 + Y^2) period by period
    LargerComponent,  // the whole spectrum of the component with the larger peak acceleration
};

/// combined made anew 0..specCount; for j = 1..specCount the rule's ordinate. The larger
/// component is chosen once for the record by the peak accelerations: Y when peakY >= peakX.
/// Failure: 9 when a spectrum is shorter than specCount, 6 on overflow.
void combine_record(const text::DoubleArray& specX, const text::DoubleArray& specY, std::int32_t specCount,
                    CombinationRule rule, double peakX, double peakY, text::DoubleArray& combined);

/// average made anew 0..specCount; average(j) = (combined1(j) + combined2(j) + ...) / n over the
/// n arrays given, summed in record order. Failure: n = 0 raises 9 (there is no first record),
/// 9 for a short array.
void average_spectrum(const std::vector<const text::DoubleArray*>& combined, std::int32_t specCount,
                      text::DoubleArray& average);

/// target made anew 0..specCount; target(j) = saScale * designSa(j). Failure: 9 when designSa
/// is shorter than specCount.
void target_spectrum(const text::DoubleArray& designSa, double saScale, std::int32_t specCount,
                     text::DoubleArray& target);

/// The largest target / average ratio over the period band, never below 1. tStart and tEnd
/// (s) are first rounded through the "0.00" format; T runs by repeated addition of
/// periodStep; the index is T / periodStep to the nearest integer (halves to even); a ratio
/// counts only where average < target, and only when strictly above the best so far.
/// Failure: periodStep 0 raises 11, an index outside the arrays 9, an average of 0 under a
/// positive target 11.
double largest_shortfall_ratio(const text::DoubleArray& average, const text::DoubleArray& target, double tStart,
                               double tEnd, double periodStep);

/// The scale factor as shown: M to two decimals, halves to even (1.125 -> 1.12, 1.135 -> 1.14).
double round_factor(double M);

/// For i = firstLine .. lastLine - 1: accelX(i) = z * baseX(i), then accelY(i) = z * baseY(i)
/// (the last sample is not rewritten). Failure: 9 for an index outside an array, with the
/// samples before it rewritten.
void scale_record(const text::DoubleArray& baseX, const text::DoubleArray& baseY, text::DoubleArray& accelX,
                  text::DoubleArray& accelY, std::int32_t firstLine, std::int32_t lastLine, double z);

/// One record as the comparison sees it.
struct ComparisonRecord {
    std::int32_t firstLine;
    std::int32_t lastLine;
    const text::DoubleArray& baseX;
    const text::DoubleArray& baseY;
    text::DoubleArray& accelX;  // rewritten as z * base
    text::DoubleArray& accelY;
    const text::DoubleArray& specX;  // as the integrator leaves them
    const text::DoubleArray& specY;
    double peakX;  // peak accelerations that choose the larger component
    double peakY;
    text::DoubleArray& combined;
};

/// What the window supplies to the calculation, each called at the moment it reads or writes.
struct ComparisonHooks {
    std::function<void()> run_integrator;              // pseudo acceleration spectra of all records
    std::function<double()> sa_scale;                  // the code factor on the design spectrum
    std::function<std::pair<double, double>()> band;   // the band's first and last period, s
    std::function<void(double)> show_factor;           // the rounded factor, each time through
};

/// The comparison calculation: with z = 1, scale the records, run the integrator, combine,
/// average, make the target and search the band for M; z = M rounded; then scale, integrate,
/// combine, average and target once more with that z. Returns z. On return the records, the
/// spectra, `combined`, average and target hold the state of the scaled records.
/// Failure: as the pieces; what was done stays.
double comparison_calculate(const std::vector<ComparisonRecord>& records, const text::DoubleArray& designSa,
                            std::int32_t specCount, double periodStep, CombinationRule rule,
                            text::DoubleArray& average, text::DoubleArray& target, const ComparisonHooks& hooks);

}  // namespace tv::compute
