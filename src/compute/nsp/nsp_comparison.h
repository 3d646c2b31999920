#pragma once
// Nonlinear static procedures side by side on one pushover curve and one demand spectrum: the
// window's own coefficient method, the ASCE 41-17 coefficient method, the ATC-40 capacity
// spectrum sweep, FEMA 440 equivalent linearisation and the Eurocode 8 N2 method. Each gives a
// column of named values (with unit and clause), its target roof displacement or the reason it
// has none, and its demand and performance point in ADRS coordinates for a diagram.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "compute/coefficient/target_displacement.h"
#include "compute/spectra/design_spectrum.h"

namespace tv::compute::nsp {

/// One point of the pushover curve: roof displacement and base shear.
struct CurvePoint {
    double d = 0;
    double V = 0;
};

/// A point in ADRS coordinates: spectral displacement (the curve's length unit) and spectral
/// acceleration (g).
struct AdrsPoint {
    double Sd = 0;
    double Sa = 0;
};

/// The 5 %-damped elastic demand. Each method applies its own damping rule to it.
struct Demand {
    std::function<double(double T)> Sa;  // g; empty: no demand given
    double T_min = 0;                     // s: Sa is defined on [T_min, T_max]
    double T_max = 4;
    std::optional<double> TC;  // corner period of the constant-velocity branch, s (for N2)
    std::string source = "the demand spectrum";  // cited beside the values read from it
};

/// The Eurocode 8 elastic spectrum (EN 1998-1 §3.2.2.2): type 1 or 2, ground type A to E,
/// design ground acceleration ag in g, viscous damping in percent.
struct Ec8Spectrum {
    int type = 1;
    char ground = 'B';
    double ag = 0.3;
    double damping = 5;
};

/// S, TB, TC, TD of Tables 3.2 and 3.3. Nothing for a type or ground outside the tables.
struct Ec8Constants {
    double S, TB, TC, TD;
};
std::optional<Ec8Constants> ec8_constants(int type, char ground);

/// Se(T) / g of Eqs. (3.2) to (3.5), up to 4 s; nothing for a spectrum outside the tables.
std::optional<Demand> ec8_demand(const Ec8Spectrum& s);

/// The program's design spectrum (the design spectrum window's) of a soil and hazard with scale
/// A in g, up to 4 s; TC is its corner period Ts. Nothing for A not above 0.
std::optional<Demand> design_demand(Soil soil, Hazard hazard, double A);

/// The sweep settings of the capacity spectrum column (the capacity window's boxes).
struct CsmSettings {
    double T0 = 0.4358;  // s: acceleration range below, velocity range from it on
    double m = 2;        // the initial slope is taken at this step
    int kind = 1;        // structure type 1 "A", 2 "B", 3 "C"
};

enum class SiteClass { A, B, C, D, E, F };

/// What the ASCE 41-17 column needs beyond the curve.
struct Asce41Settings {
    SiteClass site = SiteClass::D;
    bool c0_from_mode = false;  // C0 = Γ1 φ1,roof instead of Table 7-5
    double stories = 1;         // for Table 7-5
    int c0_column = 3;          // 1 shear building triangular, 2 shear building uniform, 3 other
    double Cm = 1;              // Table 7-4 or the first mode's mass ratio; 1 above Te = 1 s
    double alpha_p_delta = 0;   // negative slope ratio from P-Δ alone
    bool near_field = false;    // λ = 0.2 near field, else 0.8
};

/// Everything the comparison works from.
struct NspInputs {
    std::vector<CurvePoint> curve;  // from the origin, in the order pushed
    /// The two-line fit of the coefficient road: yield point (absent when none was found),
    /// target point of the fit, Ki, Ti and Te (Ki and Ti are shown beside Te, not used).
    std::optional<CurvePoint> yield;
    CurvePoint fit_end;
    double Ki = 0, Ti = 0, Te = 0;
    double W = 0;        // weight, force unit of the curve
    double g = 981;      // g in the curve's length unit per s^2
    std::string length_unit = "cm", force_unit = "kgf";  // names shown beside the values
    double gamma_phi = 1;  // Γ1 φ1,roof: roof displacement per spectral displacement
    double alpha1 = 1;     // modal mass ratio of the first mode
    Demand demand;
    /// The window's own coefficient method, as its window would run it; absent: no column.
    std::optional<CoefficientMethodInputs> window_method;
    Asce41Settings asce41;
    CsmSettings csm;
    double beta0 = 5;          // FEMA 440 initial damping, percent
    bool n2_iterate = false;   // EN 1998-1 Annex B optional iteration on dm*
};

/// One value of a column, with what a tooltip and a report need.
struct NamedValue {
    std::string name;    // symbol as shown, e.g. "C1"
    std::string unit;    // "" when dimensionless
    std::string clause;  // where the value comes from
    double value = 0;
};

/// A table of iterations: headings and one row of numbers per pass.
struct IterationTable {
    std::vector<std::string> headings;
    /// Beside each heading, the unit it does not name itself (the curve's units); "" otherwise.
    std::vector<std::string> units;
    std::vector<std::vector<double>> rows;
};

enum class Method { WindowCoefficient, Asce41, Atc40, Fema440, Ec8N2 };

struct MethodColumn {
    Method method = Method::WindowCoefficient;
    std::string title;
    std::vector<NamedValue> values;
    std::vector<std::string> notes;  // statements beside the values ("not permitted", ...)
    std::optional<double> target;    // roof displacement, curve length unit (cm for the window's)
    std::string target_unit;
    std::string no_result;  // why there is no target, when there is none
    IterationTable iterations;
    std::vector<AdrsPoint> demand;  // the method's demand curve
    std::optional<AdrsPoint> performance;
};

struct NspComparison {
    std::vector<AdrsPoint> capacity;  // the curve in ADRS coordinates
    std::vector<MethodColumn> columns;
};

/// All columns; a method that cannot give a result says why and the others stand. Never
/// throws for bad input.
NspComparison compare_procedures(const NspInputs& in) noexcept;

/// A value as the comparison's table and the batch command show it: six significant digits.
std::string six_digits(double v);

}  // namespace tv::compute::nsp
