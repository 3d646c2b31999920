#include "compute/fourier/inverse_sum.h"

#include <cmath>

#include "compute/fourier/fast_round15.h"
#include "compute/fourier/ordered_parallel.h"
#include "text/checked.h"
#include "text/format.h"
#include "text/number_text.h"
#include "text/rounding.h"
#include "text/runtime_error.h"

namespace tv::compute {

InverseTerms all_inverse_terms(const std::vector<double>& realCells, const std::vector<double>& imagCells,
                               double deltaOmega) {
    if (realCells.size() != imagCells.size()) text::raise(text::kSubscript);
    InverseTerms t;
    t.real = realCells;
    t.imag = imagCells;
    t.omega.resize(realCells.size());
    for (std::size_t i = 0; i < t.omega.size(); ++i) t.omega[i] = static_cast<double>(i + 1) * deltaOmega;
    t.weight = deltaOmega;
    return t;
}

InverseTerms picked_inverse_terms(const std::vector<double>& omega, const std::vector<double>& real,
                                  const std::vector<double>& imag, double deltaOmega, double omegaStep) {
    if (omega.size() != real.size() || omega.size() != imag.size()) text::raise(text::kSubscript);
    return InverseTerms{omega, real, imag, omegaStep > deltaOmega ? omegaStep : deltaOmega};
}

double inverse_term(double a, double real, double imag, double omega, double t, double weight) {
    const double ot = text::chk(omega * t);
    const double c = text::chk(text::chk(real * std::cos(ot)) * weight);
    const double s = text::chk(text::chk(imag * std::sin(ot)) * weight);
    return round15_fast(text::chk(text::chk(a + c) + s));
}

namespace {

// Row k: the terms in order. With `checked`, every operation raises 6 on overflow and `a` holds
// the sum as far as it got; without, a non-finite or huge sum gives NaN (redone checked).
double row_sum(const InverseTerms& terms, double t, bool checked, double& a) {
    a = 0;
    const double w = terms.weight;
    for (std::size_t i = 0; i < terms.omega.size(); ++i) {
        const double ot = terms.omega[i] * t;
        if (checked) {
            a = inverse_term(a, terms.real[i], terms.imag[i], terms.omega[i], t, w);
        } else {
            const double v = a + terms.real[i] * std::cos(ot) * w + terms.imag[i] * std::sin(ot) * w;
            if (!(std::fabs(v) < 1e300)) return a = std::nan("");
            a = round15_fast(v);
        }
    }
    return a;
}

}  // namespace

void inverse_transform(const InverseTerms& terms, double dtOut, std::int32_t m, History& out,
                       const std::function<void(std::int32_t k)>& step_done) {
    const std::size_t size = static_cast<std::size_t>(m > 0 ? m : 0) + 1;
    out.accel.assign(size, 0.0);
    out.time.assign(size, 0.0);
    if (m <= 0) return;
    std::vector<double> t(size, 0.0);
    for (std::size_t k = 1; k < size; ++k) t[k] = t[k - 1] + dtOut;

    auto work = [&](std::int64_t first, std::int64_t last) {
        for (std::int64_t k = first; k <= last; ++k) {
            const auto at = static_cast<std::size_t>(k);
            row_sum(terms, t[at], false, out.accel[at]);
        }
    };
    auto done = [&](std::int64_t k64) {
        const auto k = static_cast<std::size_t>(k64);
        text::chk(t[k]);  // t + dtOut overflowed before the row's terms
        if (!std::isfinite(out.accel[k])) row_sum(terms, t[k], true, out.accel[k]);
        out.time[k] = text::round_to(t[k], 2);
        if (step_done) step_done(static_cast<std::int32_t>(k64));
    };
    // A chunk of rows is a few milliseconds of work at most omega counts.
    const std::int64_t chunk = terms.omega.size() > 2000 ? 4 : 64;
    detail::ordered_parallel(m, chunk, detail::worker_threads(), work, done);
}

HistoryRowTexts history_row_texts(const History& history, std::int32_t k) {
    const auto at = static_cast<std::size_t>(k);
    return {text::to_text(history.time.at(at)),
            text::to_text(text::round_to(history.accel.at(at) * kInversePi, 5))};
}

std::string export_line(double first, double second) {
    return text::format(first, "0.00000000") + "    " + text::format(second, "0.00000000");
}

}  // namespace tv::compute
