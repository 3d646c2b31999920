#include "compute/import/first_mode.h"

#include <cmath>

namespace tv::compute {

std::optional<ModalNumbers> first_mode_numbers(const std::vector<double>& weights, const std::vector<double>& shape) {
    if (weights.empty() || weights.size() != shape.size()) return std::nullopt;
    double w = 0.0, wphi = 0.0, wphi2 = 0.0;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        if (!(weights[i] > 0.0) || !std::isfinite(weights[i]) || !std::isfinite(shape[i])) return std::nullopt;
        w = w + weights[i];
        wphi = wphi + weights[i] * shape[i];
        wphi2 = wphi2 + weights[i] * shape[i] * shape[i];
    }
    if (!(wphi2 > 0.0) || !std::isfinite(wphi2)) return std::nullopt;
    const double pf = wphi / wphi2;
    ModalNumbers m;
    m.weight = w;
    m.alpha1 = wphi * wphi / (w * wphi2);
    m.pf_phi = pf * shape.back();
    if (!std::isfinite(m.alpha1) || !std::isfinite(m.pf_phi)) return std::nullopt;
    return m;
}

}  // namespace tv::compute
