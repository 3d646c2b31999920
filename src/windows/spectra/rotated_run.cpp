#include "windows/spectra/rotated_run.h"

#include "compute/spectra/period_grid.h"

namespace tv::windows {

RotatedRun rotated_spectra(ProjectState& state, double zeta) {
    RotatedRun run;
    const compute::PeriodGrid grid{state.tStart, state.tEnd, state.periodStep, state.specCount};
    // The grid's indices end at specCount, which also ends a step that does not move.
    for (double T = grid.tStart; grid.holds(T) && static_cast<long>(run.periods.size()) < grid.specCount;
         T = grid.next(T))
        run.periods.push_back(T);
    for (std::int32_t k = 1; k <= state.recordCount; ++k) {
        compute::RotDOutcome r = compute::rotd_spectra(state.samples(k, 'X'), state.samples(k, 'Y'),
                                                       state.recordDt(k), zeta, run.periods);
        if (!r.ok()) {
            run.error = "record " + std::to_string(k) + ": " + r.error;
            return run;
        }
        run.records.push_back(std::move(r.spectra));
    }
    return run;
}

}  // namespace tv::windows
