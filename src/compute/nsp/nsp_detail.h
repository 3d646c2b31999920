#pragma once
// What the procedures of the comparison share: the curve in ADRS coordinates, the capacity at a
// spectral displacement, a column being filled, and the demand drawn in ADRS coordinates.
#include <cmath>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "compute/nsp/nsp_comparison.h"

namespace tv::compute::nsp::detail {

inline constexpr double kPi = 3.14159265358979323846;

/// A method with no result: the column says why.
struct NoResult {
    std::string why;
};

/// Adds values to a column as they are worked out.
struct ColumnFill {
    MethodColumn& column;
    double add(const std::string& name, const std::string& unit, const std::string& clause, double value) {
        column.values.push_back({name, unit, clause, value});
        return value;
    }
};

/// Spectral displacement of an oscillator of period T at acceleration Sa (g): Sa g T^2 / 4π^2.
inline double spectral_displacement(double Sa, double T, double g) { return Sa * g * T * T / (4 * kPi * kPi); }

/// The curve in ADRS coordinates: Sd = d / (Γ1 φ1,roof), Sa = V / W / α1.
std::vector<AdrsPoint> capacity_spectrum(const NspInputs& in);

/// Sa of the capacity spectrum at Sd, on the first segment that holds it; nothing beyond its
/// last point or before its first.
std::optional<double> capacity_at(const std::vector<AdrsPoint>& capacity, double Sd);

/// Sa of the demand at T; NoResult when T lies outside the spectrum's periods, the spectrum
/// has no ordinate there or the demand is missing.
double demand_at(const Demand& demand, double T);

/// The demand over its periods in ADRS coordinates, each ordinate through `modify` (T, Sa);
/// periods without an ordinate are left out.
std::vector<AdrsPoint> demand_curve(const Demand& demand, double g,
                                    const std::function<AdrsPoint(double T, double Sa)>& modify);

/// The performance point of a roof displacement: its spectral displacement and the capacity
/// there (the last point's Sa beyond the curve).
AdrsPoint performance_at(const std::vector<AdrsPoint>& capacity, double roof, double gamma_phi);

/// The number text used in the reasons ("%.4g").
std::string num(double v);

void asce41_column(const NspInputs& in, const std::vector<AdrsPoint>& capacity, MethodColumn& out);
void fema440_column(const NspInputs& in, const std::vector<AdrsPoint>& capacity, MethodColumn& out);
void ec8_n2_column(const NspInputs& in, const std::vector<AdrsPoint>& capacity, MethodColumn& out);

}  // namespace tv::compute::nsp::detail
