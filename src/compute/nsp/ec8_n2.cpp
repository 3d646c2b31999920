// EN 1998-1 Annex B (the N2 method of Fajfar 2000): the equivalent SDOF system, its
// elastic-perfectly plastic idealisation by equal energy, T*, the target by the short- and
// long-period rules and the roof target dt = Γ dt*.
#include "compute/nsp/ec8_n2.h"

#include <algorithm>
#include <cmath>

#include "compute/nsp/nsp_detail.h"

namespace tv::compute::nsp {

double n2_yield_displacement(double dm, double Em, double Fy) { return 2 * (dm - Em / Fy); }

double n2_period(double m, double dy, double Fy) { return 2 * detail::kPi * std::sqrt(m * dy / Fy); }

N2Target n2_target(double Se, double T, double TC, double Fy, double m) {
    N2Target r;
    r.det = Se * std::pow(T / (2 * detail::kPi), 2);
    r.qu = Se * m / Fy;
    r.short_period = T < TC;
    if (!r.short_period) {
        r.dt = r.det;
    } else if (Fy / m >= Se) {
        r.elastic = true;
        r.dt = r.det;
    } else {
        r.dt = std::max(r.det / r.qu * (1 + (r.qu - 1) * TC / T), r.det);
        if (r.dt > 3 * r.det) {
            r.dt = 3 * r.det;  // dt* need not exceed 3 det*
            r.capped = true;
        }
    }
    return r;
}

namespace detail {

namespace {

const std::string kAnnexB = "EN 1998-1 Annex B";

// The SDOF curve F* - d* from the origin.
struct SdofCurve {
    std::vector<CurvePoint> pts;

    // Force at d* on the first segment holding it; nothing beyond the last point.
    std::optional<double> force_at(double d) const {
        for (std::size_t i = 1; i < pts.size(); ++i)
            if (d >= pts[i - 1].d && d <= pts[i].d) {
                const CurvePoint &a = pts[i - 1], &b = pts[i];
                return b.d == a.d ? b.V : a.V + (b.V - a.V) * (d - a.d) / (b.d - a.d);
            }
        return std::nullopt;
    }
    // Deformation energy from the origin to d* (trapezoids, the last one cut at d*).
    double energy_to(double d) const {
        double E = 0;
        for (std::size_t i = 1; i < pts.size() && pts[i - 1].d < d; ++i) {
            const CurvePoint &a = pts[i - 1], &b = pts[i];
            const double e = std::min(b.d, d);
            const double Fe = b.d == a.d ? b.V : a.V + (b.V - a.V) * (e - a.d) / (b.d - a.d);
            E += (a.V + Fe) / 2 * (e - a.d);
        }
        return E;
    }
};

}  // namespace

void ec8_n2_column(const NspInputs& in, const std::vector<AdrsPoint>& capacity, MethodColumn& out) {
    ColumnFill f{out};
    const double Gamma = f.add("Γ", "", kAnnexB + ".2: Γ = m* / Σ mi Φi^2 (Γ1 φ1,roof with Φroof = 1)", in.gamma_phi);
    const double m = f.add("m*", in.force_unit + " s^2/" + in.length_unit,
                           kAnnexB + ".2: m* = Σ mi Φi = α1 (W / g) / Γ", in.alpha1 * (in.W / in.g) / Gamma);
    SdofCurve c;
    if (in.curve.front().d != 0) c.pts.push_back({0, 0});
    for (const CurvePoint& p : in.curve) c.pts.push_back({p.d / Gamma, p.V / Gamma});
    const auto peak = std::max_element(c.pts.begin(), c.pts.end(), [](auto& x, auto& y) { return x.V < y.V; });
    if (!(peak->V > 0) || !(peak->d > 0)) throw NoResult{"the curve has no positive base shear"};
    if (!in.demand.TC) throw NoResult{"the corner period TC of the spectrum is not known"};
    const double TC = *in.demand.TC;

    out.iterations.headings = {"pass", "dm*", "Fy*", "Em*", "dy*", "T* (s)", "Se(T*) (g)", "dt*"};
    const std::string& L = in.length_unit;
    out.iterations.units = {"", L, in.force_unit, in.force_unit + " " + L, L, "", "", L};
    double dm = peak->d, Fy = peak->V;
    double Em = 0, dy = 0, T = 0, Se = 0;
    N2Target t;
    for (int pass = 1;; ++pass) {
        Em = c.energy_to(dm);
        dy = n2_yield_displacement(dm, Em, Fy);
        if (!(dy > 0)) throw NoResult{"the equal-energy fit gives dy* = " + num(dy) + ", not above 0"};
        T = n2_period(m, dy, Fy);
        Se = demand_at(in.demand, T);
        t = n2_target(Se * in.g, T, TC, Fy, m);
        out.iterations.rows.push_back({double(pass), dm, Fy, Em, dy, T, Se, t.dt});
        if (!in.n2_iterate || std::fabs(t.dt - dm) <= 1e-6 * dm) break;
        const std::optional<double> F = c.force_at(t.dt);
        if (!F) {
            out.notes.push_back("iteration stopped: dt* lies beyond the curve's last point");
            break;
        }
        if (pass == 50) {
            out.notes.push_back("iteration stopped after 50 passes without settling");
            break;
        }
        dm = t.dt;
        Fy = *F;
    }
    f.add("Fy*", in.force_unit, kAnnexB + ".3: yield force of the idealisation", Fy);
    f.add("dm*", in.length_unit, kAnnexB + ".3: displacement at the plastic mechanism", dm);
    f.add("Em*", in.force_unit + " " + in.length_unit, kAnnexB + ".3: deformation energy up to dm*", Em);
    f.add("dy*", in.length_unit, kAnnexB + ".3: dy* = 2 (dm* - Em* / Fy*)", dy);
    f.add("T*", "s", kAnnexB + ".4: T* = 2 π (m* dy* / Fy*)^0.5", T);
    f.add("TC", "s", in.demand.source + ": corner period of the spectrum", TC);
    f.add("Se(T*)", "g", in.demand.source + ": elastic spectrum at T*", Se);
    f.add("det*", in.length_unit, kAnnexB + ".5: det* = Se(T*) (T* / 2π)^2", t.det);
    f.add("qu", "", kAnnexB + ".5: qu = Se(T*) m* / Fy*", t.qu);
    const double dt = f.add("dt*", in.length_unit,
                            t.short_period ? kAnnexB + ".5(a): T* < TC" : kAnnexB + ".5(b): T* >= TC, dt* = det*", t.dt);
    if (t.short_period)
        out.notes.push_back(t.elastic ? "short period, elastic response: dt* = det*"
                                      : "short period: dt* = det* / qu (1 + (qu - 1) TC / T*) >= det*");
    if (t.capped) out.notes.push_back("dt* limited to 3 det*");
    out.target = f.add("dt", in.length_unit, kAnnexB + ".6: dt = Γ dt*", Gamma * dt);
    out.demand = demand_curve(in.demand, in.g, nullptr);
    out.performance = performance_at(capacity, *out.target, in.gamma_phi);
}

}  // namespace detail

}  // namespace tv::compute::nsp
