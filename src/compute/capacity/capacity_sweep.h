#pragma once
// The sweep of the capacity spectrum method (calculate of the capacity wizard): one pass down
// the capacity steps that turns each into spectral coordinates, hysteretic energy, effective
// damping and reduced demand, takes the point where the reduced demand displacement falls
// below the curve, then lays the demand spectrum and its reduced form beside it.

namespace tv::compute {

/// Limits of a structure type: damping (percent) up to which K is the low value, and the
/// lowest reduction factors.
struct StructureLimits {
    double B0Limit;  // no limit for type 3: +infinity
    double SRAmin;
    double SRVmin;
};

/// Limits of type 1 "A", 2 "B", 3 "C"; any other kind gives zeros and no limit.
StructureLimits structure_limits(int kind);

/// Damping modification factor K for B0 (percent) and Lambda = B0 / 63.7: type 1 gives 1 up
/// to B0 16.25, then 1.13 - 0.51 Lambda; type 2 0.67 up to 25, then 0.845 - 0.446 Lambda;
/// type 3 0.33. `K` is returned unchanged when no rule applies.
double damping_modification(int kind, double B0, double Lambda, double K);

/// Reduction factors of a row.
struct ReductionFactors {
    double SRA = 0.0;
    double SRV = 0.0;
};

/// SRA = (3.21 - 0.68 ln Beff) / 2.12 and SRV = (2.31 - 0.41 ln Beff) / 1.65 for Beff
/// (percent) above 0, each raised to the type's lower limit; Beff not above 0 keeps `previous`.
ReductionFactors reduction_factors(int kind, double Beff, ReductionFactors previous);

}  // namespace tv::compute
