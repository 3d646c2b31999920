#pragma once
// The steps of EN 1998-1 Annex B (the N2 method) on the equivalent single-degree-of-freedom
// system, which the comparison's N2 column runs on.

namespace tv::compute::nsp {

/// B.3: yield displacement of the elastic-perfectly plastic system of equal energy,
/// dy* = 2 (dm* - Em* / Fy*).
double n2_yield_displacement(double dm, double Em, double Fy);

/// B.4: T* = 2 π (m* dy* / Fy*)^0.5.
double n2_period(double m, double dy, double Fy);

/// B.5: the target displacement of the SDOF system from the elastic one det* = Se(T*) (T*/2π)^2.
struct N2Target {
    double det = 0;   // elastic target displacement
    double qu = 0;    // Se(T*) m* / Fy*
    double dt = 0;    // target displacement
    bool short_period = false;  // T* < TC
    bool elastic = false;       // Fy* / m* >= Se(T*) for a short period
    bool capped = false;        // long period: 3 det* governs
};

/// Se in acceleration units (g times the length unit per s^2), T* and TC in s, Fy* / m* in the
/// same acceleration units.
N2Target n2_target(double Se, double T, double TC, double Fy, double m);

}  // namespace tv::compute::nsp
