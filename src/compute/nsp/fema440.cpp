// FEMA 440 chapter 6: equivalent linearisation with the general-form coefficients, the damping
// reduction B, the modified ADRS and the performance point by procedure C (the locus of
// possible performance points met with the capacity curve).
#include <cmath>

#include "compute/coefficient/bilinear_fit.h"
#include "compute/nsp/fema440.h"
#include "compute/nsp/nsp_detail.h"
#include "text/runtime_error.h"

namespace tv::compute::nsp {

EffectiveSystem effective_system(double mu, double beta0, double T0) {
    const double x = mu - 1;
    EffectiveSystem e;
    if (mu <= 1) {
        e.beta = beta0;
        e.T = T0;
    } else if (mu < 4) {
        e.beta = 4.9 * x * x - 1.1 * x * x * x + beta0;
        e.T = (0.20 * x * x - 0.038 * x * x * x + 1) * T0;
    } else if (mu <= 6.5) {
        e.beta = 14.0 + 0.32 * x + beta0;
        e.T = (0.28 + 0.13 * x + 1) * T0;
    } else {
        e.T = (0.89 * (std::sqrt(x / (1 + 0.05 * (mu - 2))) - 1) + 1) * T0;
        const double r = e.T / T0;
        e.beta = 19 * ((0.64 * x - 1) / std::pow(0.64 * x, 2)) * r * r + beta0;
    }
    return e;
}

double damping_factor(double beta_percent) { return 4 / (5.6 - std::log(beta_percent)); }

double madrs_factor(double Teff, double T0, double alpha, double mu) {
    return std::pow(Teff / T0, 2) * ((1 + alpha * (mu - 1)) / mu);
}

namespace detail {

namespace {

const std::string kCh6 = "FEMA 440 ";

struct Trial {
    double mu, beta, Teff, B, M, Sa, d, a_lppp;
    std::optional<double> a_cap;
};

}  // namespace

void fema440_column(const NspInputs& in, const std::vector<AdrsPoint>& capacity, MethodColumn& out) {
    if (!in.yield || !(in.yield->d > 0) || !(in.yield->V > 0)) throw NoResult{"no yield point"};
    ColumnFill f{out};
    const double dy = f.add("dy", in.length_unit, kCh6 + "§6.4: bilinear yield displacement, Sd", in.yield->d / in.gamma_phi);
    const double ay = f.add("ay", "g", kCh6 + "§6.4: bilinear yield acceleration, Sa", in.yield->V / in.W / in.alpha1);
    double alpha = 0;
    try {
        alpha = post_yield_ratio(in.yield->d, in.yield->V, in.fit_end.d, in.fit_end.V);
    } catch (const text::RuntimeError& e) {
        throw NoResult{"no post-yield slope: " + e.description()};
    }
    f.add("α", "", kCh6 + "§6.2.3: post-yield stiffness ratio of the bilinear curve", alpha);
    const double T0 = f.add("T0", "s", kCh6 + "§6.2: initial period of the bilinear curve",
                            2 * kPi * std::sqrt(dy / (ay * in.g)));
    const double beta0 = in.beta0;

    auto trial = [&](double mu) {
        const EffectiveSystem e = effective_system(mu, beta0, T0);
        Trial t{mu, e.beta, e.T, damping_factor(e.beta), madrs_factor(e.T, T0, alpha, mu), 0, 0, 0, {}};
        t.Sa = demand_at(in.demand, t.Teff) / t.B;
        t.d = spectral_displacement(t.Sa, t.Teff, in.g);
        t.a_lppp = t.M * t.Sa;
        t.a_cap = capacity_at(capacity, t.d);
        out.iterations.rows.push_back({t.mu, t.beta, t.Teff, t.B, t.M, t.Sa, t.d, t.a_lppp, t.a_cap.value_or(NAN)});
        return t;
    };
    out.iterations.headings = {"μ", "βeff (%)", "Teff (s)", "B", "M", "Sa/B (g)", "d", "a on LPPP (g)", "a capacity (g)"};
    out.iterations.units = {"", "", "", "", "", "", in.length_unit, "", ""};

    Trial t = trial(1);
    if (t.d > dy) {
        // Walk the locus of possible performance points up in ductility until it falls to the
        // capacity curve, then halve the last step.
        Trial below = t;
        constexpr double kStep = 0.1, kMuLimit = 50;
        for (double mu = 1 + kStep;; mu += kStep) {
            if (mu > kMuLimit) throw NoResult{"no performance point up to a ductility of " + num(kMuLimit)};
            t = trial(mu);
            if (!t.a_cap)
                throw NoResult{"the demand at μ = " + num(mu) + " lies beyond the capacity curve's last point"};
            if (t.a_lppp <= *t.a_cap) break;
            below = t;
        }
        double lo = below.mu, hi = t.mu;
        for (int k = 0; k < 60 && hi - lo > 1e-9; ++k) {
            const Trial m = trial((lo + hi) / 2);
            if (!m.a_cap) throw NoResult{"the demand lies beyond the capacity curve's last point"};
            (m.a_lppp > *m.a_cap ? lo : hi) = m.mu;
            t = m;
        }
    } else {
        out.notes.push_back("the performance point lies on the elastic branch");
        if (!t.a_cap) throw NoResult{"the elastic demand lies beyond the capacity curve's last point"};
    }
    f.add("μ", "", kCh6 + "§6.4.3 procedure C: ductility at the performance point", t.mu);
    f.add("βeff", "%", kCh6 + "§6.2.1: effective damping, general form", t.beta);
    f.add("Teff", "s", kCh6 + "§6.2.2: effective period, general form", t.Teff);
    const double B = f.add("B", "", kCh6 + "§6.3: B = 4 / (5.6 - ln βeff(%))", t.B);
    const double M = f.add("M", "", kCh6 + "§6.2.3: M = (Teff / T0)^2 (1 + α(μ - 1)) / μ", t.M);
    f.add("Sa(Teff)/B", "g", kCh6 + "§6.3: demand at Teff reduced for βeff", t.Sa);
    const double dp = f.add("dp", in.length_unit, kCh6 + "§6.4.3 procedure C: spectral displacement at the performance point", t.d);
    const double ap = f.add("ap", "g", kCh6 + "§6.4.3 procedure C: capacity at dp", *t.a_cap);
    out.target = f.add("δ roof", in.length_unit, kCh6 + "§6.4: dp Γ1 φ1,roof", dp * in.gamma_phi);
    out.performance = AdrsPoint{dp, ap};
    out.demand = demand_curve(in.demand, in.g, [&](double T, double Sa) {
        const double reduced = Sa / B;
        return AdrsPoint{spectral_displacement(reduced, T, in.g), M * reduced};
    });
}

}  // namespace detail

}  // namespace tv::compute::nsp
