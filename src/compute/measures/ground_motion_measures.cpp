#include "compute/measures/ground_motion_measures.h"

#include <fftw3.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <mutex>

#include "compute/spectra/response_integrator.h"

namespace tv::compute {

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kDamping = 0.05;
// Spectrum periods j / 100 s for j = 1 .. 400; the Housner integral runs over j = 10 .. 250.
constexpr int kPeriodSteps = 400;
constexpr int kHousnerFirst = 10;
constexpr int kHousnerLast = 250;
constexpr double kMeanPeriodLowHz = 0.25;
constexpr double kMeanPeriodHighHz = 20.0;

// Cumulative trapezoid sums of f(a[i]) over the record: out[0] = 0.
template <class F>
void cumulative(std::span<const double> a, double dt, std::vector<double>& out, F f) {
    out.assign(a.size(), 0.0);
    for (std::size_t i = 1; i < a.size(); ++i) out[i] = out[i - 1] + (f(a[i - 1]) + f(a[i])) / 2 * dt;
}

double peak_of(std::span<const double> v) {
    double p = 0;
    for (double x : v) p = std::max(p, std::fabs(x));
    return p;
}

// The time at which the rising history h first reaches p, linear between samples.
double time_reaching(const std::vector<double>& h, double p, double dt) {
    for (std::size_t i = 1; i < h.size(); ++i)
        if (h[i] >= p) return (static_cast<double>(i - 1) + (p - h[i - 1]) / (h[i] - h[i - 1])) * dt;
    return static_cast<double>(h.size() - 1) * dt;
}

// Rathje et al. (1998): sum(C^2 / f) / sum(C^2) over the band, C the Fourier amplitude.
double mean_period(std::span<const double> a, double dt) {
    std::size_t n = 1;
    while (n < a.size()) n <<= 1;
    std::vector<double> in(n, 0.0);
    std::copy(a.begin(), a.end(), in.begin());
    std::vector<std::complex<double>> out(n / 2 + 1);
    fftw_plan plan;
    {
        // Planning is not thread-safe in FFTW; running a plan is.
        static std::mutex planning;
        std::lock_guard<std::mutex> lock(planning);
        plan = fftw_plan_dft_r2c_1d(static_cast<int>(n), in.data(), reinterpret_cast<fftw_complex*>(out.data()),
                                    FFTW_ESTIMATE);
    }
    fftw_execute(plan);
    {
        static std::mutex destroying;
        std::lock_guard<std::mutex> lock(destroying);
        fftw_destroy_plan(plan);
    }
    const double df = 1.0 / (static_cast<double>(n) * dt);
    double weighted = 0, total = 0;
    for (std::size_t k = 1; k < out.size(); ++k) {
        const double f = static_cast<double>(k) * df;
        if (f < kMeanPeriodLowHz || f > kMeanPeriodHighHz) continue;
        const double c2 = std::norm(out[k]);
        weighted += c2 / f;
        total += c2;
    }
    return total > 0 ? weighted / total : 0.0;
}

}  // namespace

std::string record_problem(std::span<const double> accel, double dt) {
    if (accel.size() < 2) return "the record has fewer than two samples";
    if (!(dt > 0) || !std::isfinite(dt)) return "the time step must be a positive number of seconds";
    bool any = false;
    for (std::size_t i = 0; i < accel.size(); ++i) {
        if (!std::isfinite(accel[i])) return "sample " + std::to_string(i + 1) + " is not a finite number";
        any = any || accel[i] != 0;
    }
    if (!any) return kRecordOfZeros;
    return {};
}

MeasuresOutcome ground_motion_measures(std::span<const double> accel, double dt) {
    MeasuresOutcome r;
    r.error = record_problem(accel, dt);
    if (!r.ok()) return r;
    MotionMeasures& m = r.measures;
    const double g = kStandardGravity;

    cumulative(accel, dt, m.velocity, [g](double a) { return a * g; });
    cumulative(m.velocity, dt, m.displacement, [](double v) { return v; });
    m.pga = peak_of(accel);
    m.pgv = peak_of(m.velocity);
    m.pgd = peak_of(m.displacement);

    cumulative(accel, dt, m.husid, [](double a) { return a * a; });
    const double total = m.husid.back();
    m.arias = kPi / 2 * g * total;
    for (double& h : m.husid) h /= total;
    const double t5 = time_reaching(m.husid, 0.05, dt);
    m.d5_75 = time_reaching(m.husid, 0.75, dt) - t5;
    m.d5_95 = time_reaching(m.husid, 0.95, dt) - t5;

    std::vector<double> absolute;
    cumulative(accel, dt, absolute, [](double a) { return std::fabs(a); });
    m.cav = absolute.back();

    std::size_t first = accel.size(), last = 0;
    for (std::size_t i = 0; i < accel.size(); ++i)
        if (std::fabs(accel[i]) >= kBracketThreshold) first = std::min(first, i), last = i;
    m.bracketed = first < accel.size() ? static_cast<double>(last - first) * dt : 0.0;

    std::vector<double> periods(kPeriodSteps), peaks(kPeriodSteps);
    for (int j = 0; j < kPeriodSteps; ++j) periods[j] = (j + 1) / 100.0;
    try {
        peak_displacements(accel, dt, kDamping, periods, peaks);
    } catch (const text::RuntimeError& e) {
        r.error = "the oscillators cannot run at this time step: " + e.description();
        return r;
    }
    double bestPsa = -1;
    double previousPsv = 0;
    for (int j = 0; j < kPeriodSteps; ++j) {
        const double w = 2 * kPi / periods[j];
        const double psa = w * w * peaks[j];       // g
        const double psv = w * peaks[j] * g;       // m/s
        if (psa > bestPsa) bestPsa = psa, m.predominant_period = periods[j];
        const int step = j + 1;
        if (step > kHousnerFirst && step <= kHousnerLast) m.housner += (previousPsv + psv) / 2 * 0.01;
        previousPsv = psv;
    }
    m.mean_period = mean_period(accel, dt);
    return r;
}

}  // namespace tv::compute
