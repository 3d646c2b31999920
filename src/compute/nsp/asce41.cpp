// ASCE 41-17 §7.4.3.3.2: the coefficient method with its limit for dynamic instability.
#include <algorithm>
#include <cmath>

#include "compute/nsp/nsp_detail.h"

namespace tv::compute::nsp::detail {

namespace {

const std::string kClause = "ASCE 41-17 §7.4.3.3.2";

// Table 7-5, linear between the rows it lists; the last row from 10 stories on.
double c0_table(double stories, int column) {
    static constexpr double kStories[] = {1, 2, 3, 5, 10};
    static constexpr double kC0[3][5] = {
        {1.0, 1.2, 1.2, 1.3, 1.3}, {1.0, 1.15, 1.2, 1.2, 1.2}, {1.0, 1.2, 1.3, 1.4, 1.5}};
    if (column < 1 || column > 3) throw NoResult{"C0 column " + std::to_string(column) + " is not in Table 7-5"};
    if (!(stories >= 1)) throw NoResult{"Table 7-5 starts at one story; " + num(stories) + " given"};
    const double* row = kC0[column - 1];
    for (int k = 1; k < 5; ++k)
        if (stories <= kStories[k])
            return row[k - 1] + (row[k] - row[k - 1]) * (stories - kStories[k - 1]) / (kStories[k] - kStories[k - 1]);
    return row[4];
}

double site_factor(SiteClass s) {
    switch (s) {
        case SiteClass::A:
        case SiteClass::B: return 130;
        case SiteClass::C: return 90;
        default: return 60;
    }
}

// The descending branch after the largest base shear: the slope from the peak to where the
// force has dropped to 0.6 Vy (or to the last point), over Ke. Nothing without a descent.
std::optional<double> negative_slope_ratio(const std::vector<CurvePoint>& curve, std::size_t peak, double Vy,
                                           double Ke) {
    const CurvePoint& p = curve[peak];
    std::optional<CurvePoint> end;
    for (std::size_t i = peak + 1; i < curve.size(); ++i) {
        const CurvePoint& a = curve[i - 1];
        const CurvePoint& b = curve[i];
        if (b.V <= 0.6 * Vy && a.V > 0.6 * Vy && b.V != a.V) {
            const double t = (0.6 * Vy - a.V) / (b.V - a.V);
            end = CurvePoint{a.d + t * (b.d - a.d), 0.6 * Vy};
            break;
        }
        end = b;
    }
    if (!end || !(end->d > p.d) || !(end->V < p.V)) return std::nullopt;
    return (end->V - p.V) / (end->d - p.d) / Ke;
}

}  // namespace

void asce41_column(const NspInputs& in, const std::vector<AdrsPoint>& capacity, MethodColumn& out) {
    const Asce41Settings& s = in.asce41;
    if (!in.yield || !(in.yield->d > 0) || !(in.yield->V > 0)) throw NoResult{"no yield point"};
    const double dy = in.yield->d, Vy = in.yield->V;
    const double Te = in.Te;
    if (!(Te > 0)) throw NoResult{"no effective period Te"};
    ColumnFill f{out};
    f.add("Ti", "s", kClause + ": elastic period", in.Ti);
    f.add("Ki", in.force_unit + "/" + in.length_unit, kClause + ": elastic lateral stiffness", in.Ki);
    f.add("Ke", in.force_unit + "/" + in.length_unit, kClause + ": effective lateral stiffness Vy / Δy", Vy / dy);
    f.add("Te", "s", kClause + ", Eq. (7-27): Te = Ti (Ki / Ke)^0.5", Te);
    const double Sa = f.add("Sa", "g", kClause + ": spectral acceleration at Te, 5 % damping", demand_at(in.demand, Te));
    const double C0 = s.c0_from_mode ? f.add("C0", "", kClause + ": C0 = Γ1 φ1,roof", in.gamma_phi)
                                     : f.add("C0", "", kClause + ", Table 7-5", c0_table(s.stories, s.c0_column));
    const double Cm = f.add("Cm", "", kClause + ", Table 7-4 (1.0 for Te > 1.0 s)", Te > 1.0 ? 1.0 : s.Cm);
    const double mu = f.add("μstrength", "", kClause + ", Eq. (7-31): μstrength = Sa / (Vy / W) Cm", Sa / (Vy / in.W) * Cm);
    if (mu < 1) throw NoResult{"μstrength = " + num(mu) + " is below 1: the demand stays below the yield strength"};
    const double a = f.add("a", "", kClause + ": site class factor (130 A-B, 90 C, 60 D-F)", site_factor(s.site));
    const double Tc1 = std::max(Te, 0.2);  // below 0.2 s, C1 need not exceed its value at 0.2 s
    const double C1 = f.add("C1", "", kClause + ", Eq. (7-29): 1 + (μstrength - 1) / (a Te^2); 1.0 for Te > 1.0 s",
                            Te > 1.0 ? 1.0 : 1 + (mu - 1) / (a * Tc1 * Tc1));
    const double C2 = f.add("C2", "", kClause + ", Eq. (7-30): 1 + ((μstrength - 1) / Te)^2 / 800; 1.0 for Te > 0.7 s",
                            Te > 0.7 ? 1.0 : 1 + std::pow((mu - 1) / Te, 2) / 800);
    const double dt = f.add("δt", in.length_unit, kClause + ", Eq. (7-28): C0 C1 C2 Sa Te^2 / (4 π^2) g",
                            C0 * C1 * C2 * Sa * Te * Te / (4 * kPi * kPi) * in.g);

    // Dynamic instability: only a negative post-yield slope limits the strength ratio.
    const auto peak = static_cast<std::size_t>(
        std::max_element(in.curve.begin(), in.curve.end(), [](auto& x, auto& y) { return x.V < y.V; }) -
        in.curve.begin());
    const double Ke = Vy / dy;
    if (const auto alpha2 = negative_slope_ratio(in.curve, peak, Vy, Ke)) {
        f.add("α2", "", kClause + ": negative post-yield slope ratio, peak to 0.6 Vy", *alpha2);
        const double lambda = f.add("λ", "", kClause + ": near-field 0.2, otherwise 0.8", s.near_field ? 0.2 : 0.8);
        const double ae = f.add("αe", "", kClause + ", Eq. (7-33): αP-Δ + λ (α2 - αP-Δ)",
                                s.alpha_p_delta + lambda * (*alpha2 - s.alpha_p_delta));
        const double Dd = f.add("Δd", in.length_unit, kClause + ": lesser of δt and the displacement at the largest base shear",
                                std::min(dt, in.curve[peak].d));
        const double h = f.add("h", "", kClause + ": h = 1 + 0.15 ln Te", 1 + 0.15 * std::log(Te));
        const double mu_max = f.add("μmax", "", kClause + ", Eq. (7-32): Δd / Δy + |αe|^-h / 4",
                                    Dd / dy + std::pow(std::fabs(ae), -h) / 4);
        if (ae < 0 && mu > mu_max) {
            out.notes.push_back("μstrength exceeds μmax: the nonlinear static procedure is not permitted");
            throw NoResult{"not permitted: μstrength " + num(mu) + " exceeds μmax " + num(mu_max) +
                           " (negative post-yield slope beyond the dynamic-instability limit)"};
        }
    }
    out.target = dt;
    out.demand = demand_curve(in.demand, in.g, nullptr);
    out.performance = performance_at(capacity, dt, in.gamma_phi);
}

}  // namespace tv::compute::nsp::detail
