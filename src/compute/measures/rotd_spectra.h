#pragma once
// Orientation-independent response spectra of two horizontal components (Boore 2010): the
// oscillator's displacement histories of both components are combined for every angle from 0
// to 179 degrees by 1, and each angle's peak becomes a pseudo acceleration.
#include <span>
#include <string>
#include <vector>

namespace tv::compute {

struct RotDSpectra {
    std::vector<double> periods;  // s, as asked
    std::vector<double> rotd50;   // g, median over the angles of the peak PSA
    std::vector<double> rotd100;  // g, largest over the angles
};

struct RotDOutcome {
    RotDSpectra spectra;
    std::string error;  // empty when the spectra are there
    bool ok() const { return error.empty(); }
};

/// RotD50 and RotD100 of the components a1 and a2 (g, time step dt in s, damping ratio zeta) at
/// each period (s). Per period each component's displacement history is computed once by the
/// exact stepping from rest; the angle theta's history is x1 cos(theta) + x2 sin(theta); PSA is
/// (2 pi / T)^2 times its peak. RotD50 is the mean of the 90th and 91st of the 180 sorted peaks.
/// A shorter component is taken as at rest after its end.
/// Failure (a message, no spectra): a component that record_problem refuses (a component of
/// zeros is allowed beside one that is not), damping not in [0, 1), a period that is not above 0.
RotDOutcome rotd_spectra(std::span<const double> a1, std::span<const double> a2, double dt, double zeta,
                         std::span<const double> periods);

}  // namespace tv::compute
