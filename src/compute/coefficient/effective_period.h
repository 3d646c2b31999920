#pragma once
// Effective stiffness and period of the two-line curve.

namespace tv::compute {

/// Ke = Yy / Xy, the secant slope to the yield point, in force per displacement.
/// Failure: 11 for Xy of 0 (6 when both are 0).
double effective_stiffness(double Xy, double Yy);

/// Te = Ti x (Ki / Ke) ^ 0.5, in seconds when Ti is. Failure: 11 for Ke of 0, 5 when Ki / Ke
/// is negative (a typed yield point below the axis).
double effective_period(double Ti, double k_initial, double Ke);

}  // namespace tv::compute
