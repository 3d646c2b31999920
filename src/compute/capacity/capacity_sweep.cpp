#include "compute/capacity/capacity_sweep.h"

#include <cmath>
#include <limits>

namespace tv::compute {

StructureLimits structure_limits(int kind) {
    switch (kind) {
        case 1: return {16.25, 0.33, 0.5};
        case 2: return {25.0, 0.44, 0.56};
        case 3: return {std::numeric_limits<double>::infinity(), 0.56, 0.67};
        default: return {std::numeric_limits<double>::infinity(), 0.0, 0.0};
    }
}

double damping_modification(int kind, double B0, double Lambda, double K) {
    if (kind == 1) {
        if (B0 <= 16.25) K = 1.0;
        if (B0 > 16.25) K = 1.13 - 0.51 * Lambda;
    } else if (kind == 2) {
        if (B0 <= 25.0) K = 0.67;
        if (B0 > 25.0) K = 0.845 - 0.446 * Lambda;
    } else if (kind == 3) {
        K = 0.33;
    }
    return K;
}

ReductionFactors reduction_factors(int kind, double Beff, ReductionFactors previous) {
    if (!(Beff > 0.0)) return previous;
    const StructureLimits lim = structure_limits(kind);
    ReductionFactors r;
    r.SRA = (3.21 - 0.68 * std::log(Beff)) / 2.12;
    r.SRV = (2.31 - 0.41 * std::log(Beff)) / 1.65;
    if (r.SRA < lim.SRAmin) r.SRA = lim.SRAmin;
    if (r.SRV < lim.SRVmin) r.SRV = lim.SRVmin;
    return r;
}

}  // namespace tv::compute
