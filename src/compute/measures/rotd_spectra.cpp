#include "compute/measures/rotd_spectra.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "compute/measures/ground_motion_measures.h"
#include "compute/spectra/response_integrator.h"

namespace tv::compute {

namespace {

constexpr double kPi = 3.141592653589793;
constexpr int kAngles = 180;

struct Angles {
    std::array<double, kAngles> c, s;
    Angles() {
        for (int j = 0; j < kAngles; ++j) c[j] = std::cos(j * kPi / 180), s[j] = std::sin(j * kPi / 180);
    }
};

// The peak of |x1 cos + x2 sin| at every angle. A sample no farther from the origin than the
// smallest peak cannot raise any angle's peak, so only the farther ones are swept: the peaks of
// the four angles 0, 45, 90 and 135 degrees bound every angle's peak from below, and the
// candidates are few (an oscillator's path spends most of the record well inside its envelope).
void angle_peaks(const Angles& angles, const std::vector<double>& x1, const std::vector<double>& x2,
                 std::vector<double>& cx, std::vector<double>& cy, std::array<double, kAngles>& peak) {
    const std::size_t n = x1.size();
    std::array<std::size_t, 4> at{};
    std::array<double, 4> best{};
    for (std::size_t i = 0; i < n; ++i) {
        const double v[4] = {std::fabs(x1[i]), std::fabs(x1[i] + x2[i]), std::fabs(x2[i]), std::fabs(x1[i] - x2[i])};
        for (int k = 0; k < 4; ++k)
            if (v[k] > best[k]) best[k] = v[k], at[k] = i;
    }
    double bound = INFINITY;
    for (int j = 0; j < kAngles; ++j) {
        double h = 0;
        for (std::size_t i : at) h = std::max(h, std::fabs(angles.c[j] * x1[i] + angles.s[j] * x2[i]));
        bound = std::min(bound, h);
    }
    // A margin far above rounding keeps every sample that could tie.
    const double keep = bound * bound * (1 - 1e-9);
    cx.clear();
    cy.clear();
    for (std::size_t i = 0; i < n; ++i)
        if (x1[i] * x1[i] + x2[i] * x2[i] >= keep) cx.push_back(x1[i]), cy.push_back(x2[i]);
    peak.fill(0.0);
    for (std::size_t i = 0; i < cx.size(); ++i)
        for (int j = 0; j < kAngles; ++j)
            peak[j] = std::max(peak[j], std::fabs(angles.c[j] * cx[i] + angles.s[j] * cy[i]));
}

}  // namespace

RotDOutcome rotd_spectra(std::span<const double> a1, std::span<const double> a2, double dt, double zeta,
                         std::span<const double> periods) {
    RotDOutcome r;
    auto refuse = [&](const std::string& why) {
        r.spectra = {};
        r.error = why;
        return r;
    };
    const std::string p1 = record_problem(a1, dt), p2 = record_problem(a2, dt);
    const bool zeros1 = p1 == kRecordOfZeros, zeros2 = p2 == kRecordOfZeros;
    if (!p1.empty() && !(zeros1 && !zeros2)) return refuse("first component: " + p1);
    if (!p2.empty() && !(zeros2 && !zeros1)) return refuse("second component: " + p2);
    if (!(zeta >= 0 && zeta < 1)) return refuse("the damping ratio must be 0 or more and below 1");
    for (double T : periods)
        if (!(T > 0) || !std::isfinite(T)) return refuse("every period must be a positive number of seconds");

    const std::size_t n = std::max(a1.size(), a2.size());
    std::vector<double> g1(n, 0.0), g2(n, 0.0);
    std::copy(a1.begin(), a1.end(), g1.begin());
    std::copy(a2.begin(), a2.end(), g2.begin());
    std::vector<double> x1(n), x2(n), cx, cy;
    cx.reserve(n);
    cy.reserve(n);
    static const Angles angles;
    std::array<double, kAngles> peak;
    RotDSpectra& out = r.spectra;
    out.periods.assign(periods.begin(), periods.end());
    out.rotd50.reserve(periods.size());
    out.rotd100.reserve(periods.size());
    try {
        for (double T : periods) {
            const OscillatorCoefficients k = exact_oscillator_coefficients(T, zeta, dt);
            oscillator_displacements(k, g1, x1);
            oscillator_displacements(k, g2, x2);
            angle_peaks(angles, x1, x2, cx, cy, peak);
            if (!std::all_of(peak.begin(), peak.end(), [](double p) { return std::isfinite(p); }))
                return refuse("the oscillator's response overflows at T = " + std::to_string(T) + " s");
            const double w = 2 * kPi / T;
            std::sort(peak.begin(), peak.end());
            out.rotd50.push_back(w * w * ((peak[kAngles / 2 - 1] + peak[kAngles / 2]) / 2));
            out.rotd100.push_back(w * w * peak[kAngles - 1]);
        }
    } catch (const text::RuntimeError& e) {
        return refuse("the oscillators cannot run at this time step: " + e.description());
    }
    return r;
}

}  // namespace tv::compute
