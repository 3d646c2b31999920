#pragma once
// What the comparison of nonlinear static procedures takes over from the coefficient road.
#include "compute/nsp/nsp_comparison.h"
#include "windows/program.h"

namespace tv::windows {

/// The comparison's inputs as Form6 and Form8 stand: the curve read (every point), the yield
/// point typed or found (none while its boxes are empty or 0), the target point of the fit, Ki,
/// Ti and Te as shown; when Form8 is loaded, W and the inputs of its own coefficient method.
/// Everything else keeps the defaults of NspInputs.
compute::nsp::NspInputs nsp_inputs(Program& program);

}  // namespace tv::windows
