#pragma once
// The formulas of FEMA 440 chapter 6 that the comparison's equivalent linearisation runs on.

namespace tv::compute::nsp {

/// Effective damping (percent) and period of the equivalent linear system.
struct EffectiveSystem {
    double beta = 0;
    double T = 0;
};

/// βeff and Teff at ductility μ by the general-form expressions of §6.2.1 and §6.2.2, in the
/// three ranges 1 < μ < 4, 4 <= μ <= 6.5 and μ > 6.5; β0 and T0 at μ <= 1. β0 in percent.
EffectiveSystem effective_system(double mu, double beta0, double T0);

/// §6.3: B = 4 / (5.6 - ln βeff), βeff in percent.
double damping_factor(double beta_percent);

/// §6.2.3: M = (Teff / T0)^2 (1 + α (μ - 1)) / μ, which turns the damped spectrum into the
/// modified ADRS.
double madrs_factor(double Teff, double T0, double alpha, double mu);

}  // namespace tv::compute::nsp
