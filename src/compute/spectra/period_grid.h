#pragma once
// The period grid every spectrum runs over: a counted loop on doubles from a first period to a
// last by a step, and the whole-number arithmetic that ties periods to array indices. Header
// only, so that every area can walk a grid without linking this one.
#include <cstdint>

#include "text/checked.h"
#include "text/rounding.h"

namespace tv::compute {

/// Upper index of the spectrum arrays of a grid ending at tEnd: tEnd / step to the nearest
/// whole number, halves to even (0.25 / 0.1 gives 2).
/// Failure: step 0 raises 11 (6 when tEnd is 0 too), a count beyond 32 bits raises 6.
inline std::int32_t period_count(double tEnd, double step) { return text::to_int32(text::div(tEnd, step)); }

/// The period that index k stands for: k * step, a product, so no rounding accumulates.
/// Failure: 6 beyond the double range.
inline double period_of_index(long k, double step) { return text::chk(static_cast<double>(k) * step); }

/// The index of period T: T / step to the nearest whole number, halves to even.
/// Failure: step 0 raises 11 (6 for 0 / 0), an index beyond the long range 6.
inline long index_of_period(double T, double step) { return text::index_of(text::div(T, step)); }

/// The periods of a spectrum: T = tStart, then each T the one before plus periodStep, so the
/// rounding of the sum accumulates and can drop the last period (or add one when tStart is
/// below the step); the end and the step are fixed when the loop starts. As a counted loop a
/// negative step counts down, while T >= tEnd; `upward` keeps the plain while T <= tEnd
/// whatever the step's sign, as Show Diagram of the design spectrum window loops. Ordinates
/// have indices 0..specCount; pass k stores at index k, which is period k * periodStep only
/// when tStart equals the step.
struct PeriodGrid {
    double tStart = 0;
    double tEnd = 0;
    double periodStep = 0;
    std::int32_t specCount = 0;
    bool upward = false;

    /// Whether the loop still runs at period T.
    bool holds(double T) const { return periodStep < 0 && !upward ? T >= tEnd : T <= tEnd; }
    /// The period after T.
    double next(double T) const { return T + periodStep; }
    /// visit(k, T) for the passes k = 1, 2, ... in order; a step of 0 never ends unless the
    /// visit fails, as the loop it stands for.
    template <class Visit>
    void each(Visit&& visit) const {
        long k = 1;
        for (double T = tStart; holds(T); T = next(T)) visit(k++, T);
    }
};

}  // namespace tv::compute
