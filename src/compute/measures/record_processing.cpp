#include "compute/measures/record_processing.h"

#include <Eigen/Dense>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "compute/measures/ground_motion_measures.h"

namespace tv::compute {

namespace {

constexpr double kPi = 3.141592653589793;
constexpr int kMaxBaselineOrder = 6;
constexpr int kMaxFilterOrder = 8;

// b0 + b1 z^-1 + b2 z^-2 over 1 + a1 z^-1 + a2 z^-2.
struct Section {
    double b0, b1, b2, a1, a2;
};

// The sections of an order-n Butterworth low- or high-pass with corner f (Hz): each pole pair
// of the analog prototype, scaled to the prewarped corner K = tan(pi f dt), through the
// bilinear transform s = (1 - z^-1) / (1 + z^-1).
void butterworth(std::vector<Section>& out, int n, double f, double dt, bool high) {
    const double K = std::tan(kPi * f * dt);
    const double K2 = K * K;
    for (int k = 0; k < n / 2; ++k) {
        const double damping = std::sin(kPi * (2 * k + 1) / (2.0 * n));  // s^2 + 2 damping s + 1
        const double a0 = 1 + 2 * damping * K + K2;
        const double a1 = (2 * K2 - 2) / a0;
        const double a2 = (1 - 2 * damping * K + K2) / a0;
        if (high)
            out.push_back({1 / a0, -2 / a0, 1 / a0, a1, a2});
        else
            out.push_back({K2 / a0, 2 * K2 / a0, K2 / a0, a1, a2});
    }
    if (n % 2 == 1) {
        const double a1 = (K - 1) / (K + 1);
        if (high)
            out.push_back({1 / (1 + K), -1 / (1 + K), 0, a1, 0});
        else
            out.push_back({K / (1 + K), K / (1 + K), 0, a1, 0});
    }
}

// One causal pass of the cascade, transposed direct form II, from rest.
void run_sections(const std::vector<Section>& sections, std::vector<double>& x) {
    for (const Section& s : sections) {
        double z1 = 0, z2 = 0;
        for (double& v : x) {
            const double y = s.b0 * v + z1;
            z1 = s.b1 * v - s.a1 * y + z2;
            z2 = s.b2 * v - s.a2 * y;
            v = y;
        }
    }
}

// Subtracts from a the least-squares polynomial of `order` fitted to y (the acceleration
// itself, or its displacement, whose polynomial's second derivative is subtracted).
void subtract_baseline(std::vector<double>& a, const std::vector<double>& y, int order, double dt,
                       bool secondDerivative) {
    const Eigen::Index n = static_cast<Eigen::Index>(y.size());
    const double half = static_cast<double>(n - 1) / 2;  // t = (tau + 1) * half * dt
    Eigen::MatrixXd V(n, order + 1);
    for (Eigen::Index i = 0; i < n; ++i) {
        const double tau = static_cast<double>(i) / half - 1;
        double p = 1;
        for (int k = 0; k <= order; ++k) V(i, k) = p, p *= tau;
    }
    const Eigen::VectorXd c = V.colPivHouseholderQr().solve(Eigen::Map<const Eigen::VectorXd>(y.data(), n));
    const double scale = 1 / (half * dt);  // d tau / d t
    for (Eigen::Index i = 0; i < n; ++i) {
        const double tau = static_cast<double>(i) / half - 1;
        double value = 0, p = 1;
        if (secondDerivative) {
            for (int k = 2; k <= order; ++k) value += k * (k - 1) * c(k) * p, p *= tau;
            value *= scale * scale;
        } else {
            for (int k = 0; k <= order; ++k) value += c(k) * p, p *= tau;
        }
        a[static_cast<std::size_t>(i)] -= value;
    }
}

std::vector<double> twice_integrated(const std::vector<double>& a, double dt) {
    std::vector<double> v(a.size(), 0.0), d(a.size(), 0.0);
    for (std::size_t i = 1; i < a.size(); ++i) {
        v[i] = v[i - 1] + (a[i - 1] + a[i]) / 2 * dt;
        d[i] = d[i - 1] + (v[i - 1] + v[i]) / 2 * dt;
    }
    return d;
}

std::string options_problem(std::size_t n, double dt, const ProcessingOptions& o) {
    if (o.baseline != BaselineFit::none) {
        if (o.baseline_order < 0 || o.baseline_order > kMaxBaselineOrder)
            return "the baseline polynomial's order must be 0 to 6";
        if (o.baseline == BaselineFit::displacement && o.baseline_order < 2)
            return "a baseline fitted on the displacement needs order 2 or more (lower orders change no acceleration)";
        if (n <= static_cast<std::size_t>(o.baseline_order) + 1)
            return "a polynomial of order " + std::to_string(o.baseline_order) + " needs more than " +
                   std::to_string(o.baseline_order + 1) + " samples";
    }
    if (o.filter != FilterKind::none) {
        if (o.filter_order < 1 || o.filter_order > kMaxFilterOrder) return "the filter's order must be 1 to 8";
        const double nyquist = 1 / (2 * dt);
        auto corner_problem = [&](double f, const char* which) -> std::string {
            if (!(f > 0) || !(f < nyquist)) {
                std::ostringstream m;
                m << "the " << which << " corner must be above 0 and below the Nyquist frequency " << nyquist << " Hz";
                return m.str();
            }
            return {};
        };
        if (o.filter != FilterKind::low_pass)
            if (auto p = corner_problem(o.low_corner, "low"); !p.empty()) return p;
        if (o.filter != FilterKind::high_pass)
            if (auto p = corner_problem(o.high_corner, "high"); !p.empty()) return p;
        if (o.filter == FilterKind::band_pass && !(o.low_corner < o.high_corner))
            return "the band's low corner must be below its high corner";
        if (!(o.pad_seconds >= 0) || !std::isfinite(o.pad_seconds)) return "the pads must be 0 s or more";
        // Pads are held in memory with the record: a million samples a side is far beyond use.
        if (o.pad_seconds / dt > 1e6) return "the pads must be at most a million samples long";
    }
    return {};
}

}  // namespace

ProcessingOutcome process_record(std::span<const double> accel, double dt, const ProcessingOptions& options) {
    ProcessingOutcome r;
    r.error = record_problem(accel, dt);
    if (r.ok()) r.error = options_problem(accel.size(), dt, options);
    if (!r.ok()) return r;
    std::vector<double> a(accel.begin(), accel.end());

    if (options.baseline == BaselineFit::acceleration)
        subtract_baseline(a, a, options.baseline_order, dt, false);
    else if (options.baseline == BaselineFit::displacement)
        subtract_baseline(a, twice_integrated(a, dt), options.baseline_order, dt, true);

    if (options.filter != FilterKind::none) {
        std::vector<Section> sections;
        if (options.filter != FilterKind::low_pass)
            butterworth(sections, options.filter_order, options.low_corner, dt, true);
        if (options.filter != FilterKind::high_pass)
            butterworth(sections, options.filter_order, options.high_corner, dt, false);
        const auto pad = static_cast<std::size_t>(std::llround(options.pad_seconds / dt));
        std::vector<double> x(pad, 0.0);
        x.insert(x.end(), a.begin(), a.end());
        x.resize(x.size() + pad, 0.0);
        run_sections(sections, x);
        if (options.zero_phase) {
            std::reverse(x.begin(), x.end());
            run_sections(sections, x);
            std::reverse(x.begin(), x.end());
        }
        std::copy(x.begin() + static_cast<std::ptrdiff_t>(pad), x.begin() + static_cast<std::ptrdiff_t>(pad + a.size()),
                  a.begin());
    }
    r.samples = std::move(a);
    return r;
}

std::string processing_summary(const ProcessingOptions& o) {
    if (!o.active()) return "none";
    std::ostringstream s;
    if (o.baseline != BaselineFit::none)
        s << "baseline: order " << o.baseline_order << " on the "
          << (o.baseline == BaselineFit::acceleration ? "acceleration" : "displacement");
    if (o.filter != FilterKind::none) {
        if (o.baseline != BaselineFit::none) s << "; ";
        s << "filter: ";
        switch (o.filter) {
            case FilterKind::low_pass: s << "low-pass " << o.high_corner << " Hz"; break;
            case FilterKind::high_pass: s << "high-pass " << o.low_corner << " Hz"; break;
            case FilterKind::band_pass: s << "band-pass " << o.low_corner << "-" << o.high_corner << " Hz"; break;
            case FilterKind::none: break;
        }
        s << ", order " << o.filter_order << ", " << (o.zero_phase ? "zero-phase" : "causal") << ", pads "
          << o.pad_seconds << " s";
    }
    return s.str();
}

}  // namespace tv::compute
