#pragma once
// The first mode's numbers that turn a pushover curve into a capacity spectrum, from the storey
// weights and the mode shape a structural program's modal tables give.
#include <optional>
#include <vector>

#include "compute/import/curve_import.h"

namespace tv::compute {

/// From storey weights wᵢ and the first mode shape φᵢ (any scaling), storeys in order with the
/// roof last: W = Σwᵢ, PF1 = Σwᵢφᵢ / Σwᵢφᵢ², α1 = (Σwᵢφᵢ)² / (W · Σwᵢφᵢ²) and
/// PF1·φroof,1 = PF1 · φ of the roof. Weights in any force unit (W comes out in it).
/// Nothing when there is no storey, the lists differ in length, a weight is not above 0, or the
/// shape is zero everywhere.
std::optional<ModalNumbers> first_mode_numbers(const std::vector<double>& weights, const std::vector<double>& shape);

}  // namespace tv::compute
