#pragma once
// The sweep of the capacity spectrum method (calculate of the capacity wizard): one pass down
// the capacity steps that turns each into spectral coordinates, hysteretic energy, effective
// damping and reduced demand, takes the point where the reduced demand displacement falls
// below the curve, then the demand spectrum and its reduced form for the diagram.
#include <functional>
#include <limits>

namespace tv::compute {

/// The sweep's settings as numbers.
struct SweepSettings {
    double g = 0;   // g in the length unit of Sd, per s^2
    double T0 = 0;  // s: the acceleration range lies below, the velocity range from it on
    double m = 0;   // the initial slope is taken at the row where i - 1 equals m
    int kind = 1;   // structure type: 1 "A", 2 "B", 3 "C"
};

/// One capacity step as a row of the sweep takes it, numbers as its table shows them.
struct SweepStep {
    double T = 0;      // effective period, s
    double d = 0;      // spectral displacement, length unit of g
    double a = 0;      // spectral acceleration
    double PFPhi = 0;  // roof displacement per spectral displacement
};

inline constexpr double kNotReached = std::numeric_limits<double>::quiet_NaN();

/// Where the reduced demand displacement fell below the curve, between a row and the row
/// before: each value the row before's plus theta times the change, theta = -final' / (final -
/// final').
struct SweepCrossing {
    double dyPrev = kNotReached, ayPrev = kNotReached;  // the bilinear point of the row before
    double d = kNotReached, a = kNotReached;            // the point on the curve
    double targetPrev = kNotReached, target = kNotReached;  // PFPhi d of the two rows
    double targetStar = kNotReached;  // PFPhi d at the crossing: the target displacement
    double SRA = kNotReached, SRV = kNotReached, Beff = kNotReached;  // there; Beff in percent
};

/// One row of the sweep. A value that a failure kept the row from reaching is kNotReached
/// (NaN); B0 and Lambda are also where Es0 is 0, for the row works out no damping then.
struct SweepRow {
    double A = kNotReached;        // hysteretic area up to this step
    double slopeK0 = kNotReached;  // the initial slope as it stands
    double Es0 = kNotReached, A1 = kNotReached, ED = kNotReached;
    double B0 = kNotReached, Lambda = kNotReached;  // percent, and B0 / 63.7
    bool tested = false;    // the crossing test ran
    bool crossing = false;  // final of the row before > 0 > final of this one
    SweepCrossing at;       // when crossing
    // The row as it closes.
    double final = kNotReached, dy = kNotReached, ay = kNotReached, Sa = kNotReached;
    double SaRed = kNotReached, SdRed = kNotReached, K = kNotReached, Beff = kNotReached;
    double SRA = kNotReached, SRV = kNotReached;
};

/// The demand spectrum at one period and its form reduced by the factors of the last crossing
/// (0 without one; no cap). Sd = (g Sa) (T / 6.283185308)^2.
struct DemandRow {
    double Sd = kNotReached;
    double SaRed = kNotReached, SdRed = kNotReached;
};

/// calculate of the capacity wizard as numbers: one row per capacity step, in order, each
/// from the rows before it; then the demand rows. Units: g in the length unit of Sd per s^2,
/// T in s, damping in percent.
class CapacitySweep {
public:
    explicit CapacitySweep(const SweepSettings& settings) : settings_(settings) {}

    /// The next row, i = 1, 2, ...: the area grows by the trapezium from the step before (row 1
    /// from (0, 0)); the initial slope is a / d where i - 1 equals m; with Es0 = d a / 2 not 0
    /// the damping B0 (from i - 1 = m on), the bilinear point, K, Beff and the reduction factors;
    /// then the demand `Sa()` (the demand of this row, asked for at this point) reduced, capped
    /// once two rows agree, its displacement, and the crossing test.
    /// Failure: 11 or 6 for the slope where d is 0, 6 for an overflow, whatever `Sa` raises;
    /// `out` then holds the row as far as it got.
    void row(const SweepStep& step, const std::function<double()>& Sa, SweepRow& out);
    /// The initial slope so far; 0 until the row where i - 1 equals m.
    double slopeK0() const { return slopeK0_; }
    /// The demand at period T (s) with ordinate Sa. Failure: 6 for an overflow, `out` as far
    /// as it got.
    void demand(double T, double Sa, DemandRow& out) const;

private:
    SweepSettings settings_;
    long i_ = 0;
    double dPrev_ = 0, aPrev_ = 0;
    double slopeK0_ = 0, A_ = 0, A1_ = 0, ED_ = 0, B0_ = 0, Lambda_ = 0;
    double dy_ = 0, ay_ = 0, K_ = 0, Beff_ = 0, SRA_ = 0, SRV_ = 0;
    double BeffPrev_ = 0, dyPrev_ = 0, ayPrev_ = 0, SRVPrev_ = 0, SRAPrev_ = 0;
    double SaRed_ = 0, SaCap_ = 0, final_ = 0, target_ = 0;
    // At the last crossing: what the demand rows are reduced by.
    double SRAs_ = 0, SRVs_ = 0;
};

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
