#pragma once
// Coefficients of the displacement coefficient method and the target displacement: C0 and the
// mass factor Cm of the older tables, C1, C2 and the strength limit of the newer ones.
#include <limits>
#include <optional>

namespace tv::compute {

/// Gravity in cm/s^2: it fixes the target displacement in cm.
inline constexpr double kGravity = 981.0;

/// C0 for `stories` stories and the chosen column (1 to 3). Nothing when the number of stories
/// matches no row of the table (0, 2.5, negative). Column 3 above 5 stories grows by 0.02 a
/// story from 1.4 and stays at 1.5 from 10 on.
std::optional<double> c0_coefficient(double stories, int column);

/// Cm for `stories` stories and the chosen column (1 to 4): 1 for one or two stories, else
/// 0.9, 0.9, 0.8, 1.
double cm_factor(double stories, int column);

/// The soil constant a of C1: boxes tested in the order Soil III-IV (60), Soil I (130),
/// Soil II (90), the last one checked standing; 0 when none is.
double soil_constant(bool soil1, bool soil2, bool soil34);

/// Post-yield slope over the initial stiffness: ((Vu - Vy) / (du - Xy)) / Ki.
/// Failure: 11 or 6 for du equal to Xy or Ki of 0.
double post_yield_alpha(double Vu, double Vy, double du, double Xy, double Ki);

/// Strength ratio R = Cm x (Sa / (Vy / W)). Failure: 11 or 6 for Vy or W of 0.
double strength_ratio(double Cm, double Sa, double Vy, double W);

/// C1: 1 above 1 s; 1 + (R - 1) / (a Te^2) above 0.2 s up to 1 s; 1 + 25 (R - 1) / a up to
/// and including 0.2 s. Failure: 11 or 6 for a of 0 (or Te of 0 in the middle branch).
double c1_coefficient(double Te, double R, double a);

/// C2: 1 + (1 / 800) ((R - 1) / Te)^2 below 0.7 s, else 1. Failure: 11 or 6 for Te of 0.
double c2_coefficient(double Te, double R);

/// C3 when computed: 1 + |alpha| (R - 1)^1.5 / Te for a negative alpha and R >= 1, else 1.
/// Failure: 11 for Te of 0 in the first branch.
double c3_coefficient(double alpha, double R, double Te);

/// The exponent h = 1 + 0.15 ln(Te) of Rmax. Failure: 5 for Te of 0 or less.
double rmax_exponent(double Te);

/// Target displacement in cm: C0 C1 C2 Sa g Te^2 / (4 x 3.1416^2), Sa in g, Te in seconds.
double target_displacement(double C0, double C1, double C2, double Sa, double Te);

/// The greater of the target displacement and the displacement limit (the limit on a tie).
double governing_displacement(double d, double limit);

/// Rmax = dm / dy, plus |alpha_e| ^ (-h) / 4 when `use_alpha_e` (the box is checked and alpha_e
/// is not 0). Failure: 11 or 6 for dy of 0.
double rmax_ratio(double dm, double dy, bool use_alpha_e, double alpha_e, double h);

/// What the coefficient method works from: the two-line fit, the coefficients looked up and
/// the demand. Forces in one unit, displacements in cm.
struct CoefficientMethodInputs {
    double du = 0, Vu = 0;  // the target point of the fit
    double Xy = 0, Ki = 0;  // yield displacement of the fit, initial stiffness
    double Vy = 0;          // yield force
    double dy = 0;          // yield displacement that Rmax divides by
    double C0 = 0, Cm = 0, W = 0;
    double Sa = 0, Te = 0;  // in g at Te, and s
    double a = 0;           // soil constant of C1
    std::optional<double> C3;  // typed; computed when absent
    double displacement_limit = 0;
    bool use_alpha_e = false;  // the box is checked and alpha_e is not 0
    double alpha_e = 0;
};

/// The method's values in the order they are worked out; a value that a failure kept the run
/// from reaching is NaN.
struct CoefficientMethodResult {
    static constexpr double kNotReached = std::numeric_limits<double>::quiet_NaN();
    double Alpha = kNotReached;  // 0 without a yield point
    double R = kNotReached, C2 = kNotReached, C1 = kNotReached, C3 = kNotReached;
    double h = kNotReached, d = kNotReached, dm = kNotReached, Rmax = kNotReached;
};

/// The whole coefficient method: alpha, R, C2, C1, C3 (the typed one when given; it does not
/// enter the displacement), h, the target displacement d in cm, the governing displacement and
/// Rmax. Failure: those of the steps; `out` holds what was reached.
void coefficient_method(const CoefficientMethodInputs& in, CoefficientMethodResult& out);

}  // namespace tv::compute
