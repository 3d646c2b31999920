#include "compute/nsp/nsp_comparison.h"

#include <cmath>
#include <cstdio>
#include <exception>

#include "compute/capacity/capacity_sweep.h"
#include "compute/nsp/nsp_detail.h"
#include "text/runtime_error.h"

namespace tv::compute::nsp {

namespace detail {

std::string num(double v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.4g", v);
    return buf;
}

std::vector<AdrsPoint> capacity_spectrum(const NspInputs& in) {
    std::vector<AdrsPoint> out;
    out.reserve(in.curve.size());
    for (const CurvePoint& p : in.curve) out.push_back({p.d / in.gamma_phi, p.V / in.W / in.alpha1});
    return out;
}

std::optional<double> capacity_at(const std::vector<AdrsPoint>& capacity, double Sd) {
    for (std::size_t i = 1; i < capacity.size(); ++i) {
        const AdrsPoint& a = capacity[i - 1];
        const AdrsPoint& b = capacity[i];
        if (Sd >= a.Sd && Sd <= b.Sd) {
            if (b.Sd == a.Sd) return b.Sa;
            return a.Sa + (b.Sa - a.Sa) * (Sd - a.Sd) / (b.Sd - a.Sd);
        }
    }
    return std::nullopt;
}

double demand_at(const Demand& demand, double T) {
    if (!demand.Sa) throw NoResult{"no demand spectrum given"};
    if (!(T >= demand.T_min && T <= demand.T_max))
        throw NoResult{"period " + num(T) + " s outside the spectrum (" + num(demand.T_min) + " to " +
                       num(demand.T_max) + " s)"};
    const double Sa = demand.Sa(T);
    if (!std::isfinite(Sa)) throw NoResult{"the spectrum has no ordinate at " + num(T) + " s"};
    return Sa;
}

std::vector<AdrsPoint> demand_curve(const Demand& demand, double g,
                                    const std::function<AdrsPoint(double T, double Sa)>& modify) {
    std::vector<AdrsPoint> out;
    if (!demand.Sa) return out;
    constexpr int kSteps = 100;
    const double T0 = std::max(demand.T_min, 0.0);
    for (int k = 0; k <= kSteps; ++k) {
        const double T = T0 + (demand.T_max - T0) * k / kSteps;
        const double Sa = demand.Sa(T);
        if (!std::isfinite(Sa)) continue;  // a gap of the spectrum
        out.push_back(modify ? modify(T, Sa) : AdrsPoint{spectral_displacement(Sa, T, g), Sa});
    }
    return out;
}

AdrsPoint performance_at(const std::vector<AdrsPoint>& capacity, double roof, double gamma_phi) {
    const double Sd = roof / gamma_phi;
    if (auto Sa = capacity_at(capacity, Sd)) return {Sd, *Sa};
    return {Sd, capacity.empty() ? 0.0 : capacity.back().Sa};
}

}  // namespace detail

std::string six_digits(double v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.6g", v);
    return buf;
}

namespace {

using namespace detail;

// The window's own coefficient method, run by the same function as its Calculate button.
void window_column(const NspInputs& in, const std::vector<AdrsPoint>& capacity, MethodColumn& out) {
    if (!in.window_method) throw NoResult{"the coefficient window has not been run"};
    const CoefficientMethodInputs& m = *in.window_method;
    // Calculate refuses to run without these.
    if (m.W == 0 || m.Cm == 0 || m.C0 == 0 || m.dy == 0 || m.Vy == 0)
        throw NoResult{"the window's method needs W, C0, Cm, dy and Vy"};
    ColumnFill f{out};
    const std::string where = "Calculate Target Displacement window";
    CoefficientMethodResult r;
    try {
        coefficient_method(m, r);
    } catch (const text::RuntimeError& e) {
        throw NoResult{"the window's method fails: " + e.description()};
    }
    f.add("C0", "", where + ": C0 table by stories", m.C0);
    f.add("Cm", "", where + ": Cm table by stories", m.Cm);
    f.add("Sa", "g", where + ": Sa at Te", m.Sa);
    f.add("Te", "s", where + ": Te = Ti (Ki / Ke)^0.5", m.Te);
    f.add("Alpha", "", where + ": post-yield slope / Ki", r.Alpha);
    f.add("R", "", where + ": R = Cm Sa / (Vy / W)", r.R);
    f.add("C1", "", where + ": C1 = 1 + (R - 1) / (a Te^2), a by soil", r.C1);
    f.add("C2", "", where + ": C2 = 1 + ((R - 1) / Te)^2 / 800", r.C2);
    f.add("C3", "", where + ": shown only, not in the displacement", r.C3);
    f.add("Rmax", "", where + ": Rmax = dm / dy (+ |alpha_e|^-h / 4)", r.Rmax);
    f.add("delta t", "cm", where + ": C0 C1 C2 Sa Te^2 g / 4 pi^2", r.d);
    if (r.Alpha < 0) out.notes.push_back("Alpha < 0: negative post-yield slope");
    // The window works in cm; the curve's unit follows from g.
    out.target = r.d * in.g / kGravity;
    out.demand = demand_curve(in.demand, in.g, nullptr);
    out.performance = performance_at(capacity, *out.target, in.gamma_phi);
}

// The capacity spectrum sweep of the capacity window, on the curve in spectral coordinates.
void atc40_column(const NspInputs& in, const std::vector<AdrsPoint>& capacity, MethodColumn& out) {
    SweepSettings s;
    s.g = in.g;
    s.T0 = in.csm.T0;
    s.m = in.csm.m;
    s.kind = in.csm.kind;
    CapacitySweep sweep(s);
    out.iterations.headings = {"step", "T (s)", "Sd", "Sa (g)", "Beff (%)", "SRA", "SRV", "Sd reduced"};
    out.iterations.units = {"", "", in.length_unit, "", "", "", "", in.length_unit};
    std::optional<SweepCrossing> crossing;
    long i = 0;
    for (const AdrsPoint& p : capacity) {
        if (!(p.Sd > 0 && p.Sa > 0)) continue;  // the origin has no period
        const double T = 2 * kPi * std::sqrt(p.Sd / (p.Sa * in.g));
        const double Sa = demand_at(in.demand, T);
        SweepRow row;
        try {
            sweep.row({T, p.Sd, p.Sa, in.gamma_phi}, [Sa] { return Sa; }, row);
        } catch (const text::RuntimeError& e) {
            throw NoResult{"the sweep fails at step " + std::to_string(i + 1) + ": " + e.description()};
        }
        ++i;
        out.iterations.rows.push_back(
            {static_cast<double>(i), T, p.Sd, p.Sa, row.Beff, row.SRA, row.SRV, row.SdRed});
        if (row.crossing) crossing = row.at;
    }
    if (!crossing) throw NoResult{"the reduced demand does not meet the capacity curve"};
    ColumnFill f{out};
    const std::string sweep_clause = "ATC-40 §8.2.2.1 (capacity window's sweep)";
    f.add("Beff", "%", sweep_clause + ": effective damping at the crossing", crossing->Beff);
    f.add("SRA", "", sweep_clause + ": SRA = (3.21 - 0.68 ln Beff) / 2.12, limited by structure type", crossing->SRA);
    f.add("SRV", "", sweep_clause + ": SRV = (2.31 - 0.41 ln Beff) / 1.65, limited by structure type", crossing->SRV);
    f.add("dp", in.length_unit, sweep_clause + ": spectral displacement at the crossing", crossing->d);
    f.add("ap", "g", sweep_clause + ": spectral acceleration at the crossing", crossing->a);
    out.target = crossing->targetStar;
    out.performance = AdrsPoint{crossing->d, crossing->a};
    const double SRA = crossing->SRA, SRV = crossing->SRV, T0 = in.csm.T0;
    out.demand = demand_curve(in.demand, in.g, [&](double T, double Sa) {
        const double reduced = (T >= T0 ? SRV : SRA) * Sa;
        return AdrsPoint{spectral_displacement(reduced, T, in.g), reduced};
    });
}

const char* title_of(Method m) {
    switch (m) {
        case Method::WindowCoefficient: return "Coefficient method (this program's window)";
        case Method::Asce41: return "ASCE 41-17 coefficient method";
        case Method::Atc40: return "ATC-40 capacity spectrum";
        case Method::Fema440: return "FEMA 440 equivalent linearisation";
        case Method::Ec8N2: return "Eurocode 8 N2";
    }
    return "";
}

}  // namespace

std::optional<Ec8Constants> ec8_constants(int type, char ground) {
    static constexpr Ec8Constants kType1[] = {
        {1.0, 0.15, 0.4, 2.0}, {1.2, 0.15, 0.5, 2.0}, {1.15, 0.20, 0.6, 2.0}, {1.35, 0.20, 0.8, 2.0}, {1.4, 0.15, 0.5, 2.0}};
    static constexpr Ec8Constants kType2[] = {
        {1.0, 0.05, 0.25, 1.2}, {1.35, 0.05, 0.25, 1.2}, {1.5, 0.10, 0.25, 1.2}, {1.8, 0.10, 0.30, 1.2}, {1.6, 0.05, 0.25, 1.2}};
    if (ground < 'A' || ground > 'E') return std::nullopt;
    const int k = ground - 'A';
    if (type == 1) return kType1[k];
    if (type == 2) return kType2[k];
    return std::nullopt;
}

std::optional<Demand> ec8_demand(const Ec8Spectrum& s) {
    const std::optional<Ec8Constants> c = ec8_constants(s.type, s.ground);
    if (!c || !(s.ag > 0) || !(s.damping > -5)) return std::nullopt;
    const double eta = std::max(std::sqrt(10 / (5 + s.damping)), 0.55);
    const double ag = s.ag, S = c->S, TB = c->TB, TC = c->TC, TD = c->TD;
    Demand d;
    d.T_min = 0;
    d.T_max = 4;
    d.TC = TC;
    d.source = "EN 1998-1 §3.2.2.2";
    d.Sa = [=](double T) {
        if (T <= TB) return ag * S * (1 + T / TB * (eta * 2.5 - 1));
        if (T <= TC) return ag * S * eta * 2.5;
        if (T <= TD) return ag * S * eta * 2.5 * (TC / T);
        return ag * S * eta * 2.5 * (TC * TD / (T * T));
    };
    return d;
}

std::optional<Demand> design_demand(Soil soil, Hazard hazard, double A) {
    if (!(A > 0) || !std::isfinite(A)) return std::nullopt;
    const HazardGroup group = hazard_group(hazard);
    const SpectrumConstants k = spectrum_constants(soil, group);
    Demand d;
    d.T_min = 0;
    d.T_max = 4;
    d.TC = k.Ts;
    d.source = "the design spectrum";
    d.Sa = [=](double T) { return design_spectrum(T, A, k, group); };
    return d;
}

NspComparison compare_procedures(const NspInputs& in) noexcept {
    NspComparison out;
    const bool curve_ok = in.curve.size() >= 2 && in.W > 0 && in.gamma_phi > 0 && in.alpha1 > 0 && in.g > 0;
    try {
        if (curve_ok) out.capacity = capacity_spectrum(in);
    } catch (...) {
        return out;  // out of memory
    }
    using Fill = void (*)(const NspInputs&, const std::vector<AdrsPoint>&, MethodColumn&);
    const std::pair<Method, Fill> methods[] = {{Method::WindowCoefficient, window_column},
                                               {Method::Asce41, asce41_column},
                                               {Method::Atc40, atc40_column},
                                               {Method::Fema440, fema440_column},
                                               {Method::Ec8N2, ec8_n2_column}};
    for (const auto& [method, fill] : methods) {
        MethodColumn column;
        column.method = method;
        column.title = title_of(method);
        column.target_unit = in.length_unit;
        try {
            if (!curve_ok)
                throw NoResult{"the curve needs two points or more, a weight W above 0, and Γ1 φ1,roof, α1 and g above 0"};
            fill(in, out.capacity, column);
            if (column.target && !std::isfinite(*column.target)) throw NoResult{"the target is not a finite number"};
            if (column.target && *column.target > in.curve.back().d)
                column.notes.push_back("the target lies beyond the curve's last point (" + num(in.curve.back().d) + ")");
        } catch (const NoResult& e) {
            column.target.reset();
            column.performance.reset();
            column.no_result = e.why;
        } catch (const std::exception& e) {
            column.target.reset();
            column.performance.reset();
            column.no_result = std::string("failed: ") + e.what();
        } catch (...) {
            column.target.reset();
            column.performance.reset();
            column.no_result = "failed";
        }
        try {
            out.columns.push_back(std::move(column));
        } catch (...) {
            return out;  // out of memory: what is there stands
        }
    }
    return out;
}

}  // namespace tv::compute::nsp
