#pragma once
// RotD50 and RotD100 of every loaded record's pair over the design spectrum window's period
// grid: what the response spectrum window shows as further measures and the batch prints.
#include <string>
#include <vector>

#include "compute/measures/rotd_spectra.h"
#include "windows/project_state.h"

namespace tv::windows {

struct RotatedRun {
    std::vector<double> periods;                // s, pass by pass as the integrator steps the grid
    std::vector<compute::RotDSpectra> records;  // record k at k - 1, up to the one refused
    std::string error;                          // "record K: why"; empty when every record's are there
    bool ok() const { return error.empty(); }
};

/// The spectra of records 1..recordCount (X and Y of each as the record window stored them)
/// with damping ratio zeta; stops at the first record that is refused.
RotatedRun rotated_spectra(ProjectState& state, double zeta);

}  // namespace tv::windows
