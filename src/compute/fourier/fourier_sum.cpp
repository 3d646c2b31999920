#include "compute/fourier/fourier_sum.h"

#include <cmath>

#include "compute/fourier/fast_round15.h"
#include "compute/fourier/fourier_kernel.h"
#include "compute/fourier/ordered_parallel.h"
#include "text/checked.h"
#include "text/number_text.h"
#include "text/rounding.h"

namespace tv::compute {

std::int32_t omega_steps(double omegaLim, double deltaOmega) {
    return text::to_int32(text::div(omegaLim, deltaOmega));
}

FourierSamples fourier_samples(double first, double last, const std::function<double(double line)>& x_of_line) {
    FourierSamples s;
    for (double j = first; j <= last; j += 1) {
        s.j.push_back(j);
        s.x.push_back(x_of_line(j));
    }
    return s;
}

double fourier_amplitude(double real, double imag) {
    return text::pow_(text::chk(text::chk(imag * imag) + text::chk(real * real)), 0.5);
}

namespace {

// The loop as written for one omega, every operation checked: the reference the lanes match,
// and the way to the exact point of an overflow. re and im hold the sums as far as they got.
void checked_sums(const FourierSamples& s, double dt, double omega, double& re, double& im) {
    re = 0;
    im = 0;
    for (std::size_t k = 0; k < s.j.size(); ++k) {
        const double dx = text::chk(dt * s.x[k]);
        const double a = text::chk(text::chk(s.j[k] * omega) * dt);
        re = round15_fast(text::chk(re + text::chk(dx * std::cos(a))));
        im = round15_fast(text::chk(im + text::chk(dx * std::sin(a))));
    }
}

}  // namespace

namespace {

// The sums of rows 1..n into real, imag (sized 0..n, omega filled), then row_done(i) in order.
void run_sums(const FourierSamples& samples, double dt, std::int32_t n, std::vector<double>& real,
              std::vector<double>& imag, const std::vector<double>& omega,
              const std::function<void(std::size_t i)>& row_done) {
    // dt * x(j) is the first product of every term; a non-finite one leaves the lanes NaN and
    // the checked loop raises where the old loop did.
    std::vector<double> dx(samples.x.size());
    for (std::size_t k = 0; k < dx.size(); ++k) dx[k] = dt * samples.x[k];
    const detail::FourierKernelInput in{samples.j.data(), dx.data(), samples.j.size(), dt};

    auto work = [&](std::int64_t first, std::int64_t last) {
        const auto at = static_cast<std::size_t>(first);
        detail::fourier_lanes(in, omega.data() + at, static_cast<std::size_t>(last - first + 1), real.data() + at,
                              imag.data() + at);
    };
    auto done = [&](std::int64_t i64) {
        const auto i = static_cast<std::size_t>(i64);
        text::chk(omega[i]);  // omega + deltaOmega overflowed before the row's sums
        if (!std::isfinite(real[i]) || !std::isfinite(imag[i])) checked_sums(samples, dt, omega[i], real[i], imag[i]);
        row_done(i);
    };
    // 16 omegas make one block of the wide kernels and a few milliseconds of work.
    detail::ordered_parallel(n, 16, detail::worker_threads(), work, done);
}

void make_rows(std::int32_t n, double deltaOmega, std::vector<double>& real, std::vector<double>& imag,
               std::vector<double>& omega) {
    const std::size_t size = static_cast<std::size_t>(n > 0 ? n : 0) + 1;
    real.assign(size, 0.0);
    imag.assign(size, 0.0);
    omega.assign(size, 0.0);
    for (std::size_t i = 1; i < size; ++i) omega[i] = omega[i - 1] + deltaOmega;
}

}  // namespace

void fourier_transform(const FourierSamples& samples, double dt, double deltaOmega, std::int32_t n,
                       FourierSpectrum& out, FourierPeak& peak, const std::function<void(std::int32_t i)>& omega_done,
                       const std::function<void(std::int32_t i)>& sums_done) {
    make_rows(n, deltaOmega, out.real, out.imag, out.omega);
    out.amp.assign(out.real.size(), 0.0);
    run_sums(samples, dt, n, out.real, out.imag, out.omega, [&](std::size_t i) {
        if (sums_done) sums_done(static_cast<std::int32_t>(i));
        out.amp[i] = fourier_amplitude(out.real[i], out.imag[i]);
        if (peak.amp < out.amp[i]) {
            peak.omega = out.omega[i];
            peak.amp = out.amp[i];
        }
        if (omega_done) omega_done(static_cast<std::int32_t>(i));
    });
}

FourierRowTexts fourier_row_texts(const FourierSpectrum& spectrum, std::int32_t i) {
    const auto at = static_cast<std::size_t>(i);
    return {text::to_text(text::round_to(spectrum.real.at(at), 5)),
            text::to_text(text::round_to(spectrum.imag.at(at), 5)),
            text::to_text(text::round_to(spectrum.amp.at(at), 4)),
            text::to_text(text::round_to(spectrum.omega.at(at), 2))};
}

}  // namespace tv::compute
