#pragma once
// The response spectrum run of the record windows (`calculate` of Form3, `calculatefrm3` of
// Form4): every loaded record through the integrator, with the progress panel and the trap.
#include <functional>
#include <string>

#include "compute/spectra/response_integrator.h"
#include "windows/program.h"

namespace tv::windows {

/// The progress panel "Please Wait..." of a window.
struct ProgressPanel {
    forms::Frame& Picbar;
    forms::ProgressBar& pbar;
};

/// Runs the integrator over records 1..recordCount into specX1 ... specY3. A failure is shown
/// with its description under `error_title` (critical icon) and ends the run with what was
/// stored; the panel then stays visible. Returns false after a failure. `measure` is asked
/// before the first period and after each period's events, so the tick boxes count as they
/// stand when each ordinate is stored.
bool run_response_spectra(Window& window, const ProgressPanel& panel, double zeta,
                          const std::function<compute::SpectrumMeasure()>& measure, const std::string& error_title);

}  // namespace tv::windows
