#include "compute/fourier/fourier_sum.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <thread>

#include "compute/fourier/fast_round15.h"
#include "text/checked.h"
#include "text/rounding.h"

namespace tv::compute {

std::int32_t omega_steps(double omegaLim, double deltaOmega) {
    return text::to_int32(text::div(omegaLim, deltaOmega));
}

namespace {

// The sums of one omega, as the plain loop makes them.
void sum_one(const FourierSamples& s, double dt, double omega, double& re, double& im) {
    double r = 0, m = 0;
    const std::size_t count = s.j.size();
    for (std::size_t k = 0; k < count; ++k) {
        const double j = s.j[k];
        const double x = s.x[k];
        r = round15_fast(r + dt * x * std::cos(j * omega * dt));
        m = round15_fast(m + dt * x * std::sin(j * omega * dt));
    }
    if (!std::isfinite(r) || !std::isfinite(m)) text::raise(text::kOverflow);
    re = r;
    im = m;
}

}  // namespace

void fourier_sums(const FourierSamples& samples, double dt, double deltaOmega, std::int32_t n,
                  std::vector<double>& real, std::vector<double>& imag, std::vector<double>& omega,
                  const std::function<void(std::int32_t i)>& omega_done) {
    const std::size_t size = n < 0 ? 0 : static_cast<std::size_t>(n) + 1;
    real.assign(size, 0.0);
    imag.assign(size, 0.0);
    omega.assign(size, 0.0);
    for (std::int32_t i = 1; i <= n; ++i) omega[static_cast<std::size_t>(i)] = omega[static_cast<std::size_t>(i - 1)] + deltaOmega;

    // Blocks of omegas: the calling thread sums one share while helpers sum the others, then
    // reports the block in order.
    const unsigned workers = std::max(1u, std::min(8u, std::thread::hardware_concurrency()));
    const std::int32_t block = 64 * static_cast<std::int32_t>(workers);
    for (std::int32_t first = 1; first <= n; first += block) {
        const std::int32_t last = std::min(n, first + block - 1);
        std::vector<std::exception_ptr> failures(workers);
        std::vector<char> failed_at(static_cast<std::size_t>(last - first + 1), 0);
        auto share = [&](unsigned w) {
            for (std::int32_t i = first + static_cast<std::int32_t>(w); i <= last; i += static_cast<std::int32_t>(workers)) {
                const auto u = static_cast<std::size_t>(i);
                try {
                    sum_one(samples, dt, omega[u], real[u], imag[u]);
                } catch (...) {
                    failed_at[static_cast<std::size_t>(i - first)] = 1;
                    if (!failures[w]) failures[w] = std::current_exception();
                }
            }
        };
        std::vector<std::thread> threads;
        for (unsigned w = 1; w < workers; ++w) threads.emplace_back(share, w);
        share(0);
        for (auto& t : threads) t.join();
        for (std::int32_t i = first; i <= last; ++i) {
            if (failed_at[static_cast<std::size_t>(i - first)]) text::raise(text::kOverflow);
            if (omega_done) omega_done(i);
        }
    }
}

double fourier_amplitude(double real, double imag) { return text::pow_(imag * imag + real * real, 0.5); }

double inverse_term(double a, double real, double imag, double omega, double t, double weight) {
    const double v = a + real * std::cos(omega * t) * weight + imag * std::sin(omega * t) * weight;
    if (!std::isfinite(v)) text::raise(text::kOverflow);
    return round15_fast(v);
}

}  // namespace tv::compute
