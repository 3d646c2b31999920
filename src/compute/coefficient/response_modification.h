#pragma once
// Response modification factor from the two-line curve: overstrength times the smaller of two
// ductility reduction factors (equal energy, and Miranda-Bertero for alluvium).
#include <optional>

namespace tv::compute {

struct ResponseModificationInputs {
    double Vs = 0;  // design base shear
    double T = 0;   // elastic period, s
    double du = 0;  // target displacement
    double Xy = 0;  // yield displacement
    double Yy = 0;  // yield force
    double A = 0;   // area under the two lines
    double Ke = 0;  // effective stiffness
};

struct ResponseModification {
    double miu = 0;  // ductility du / Xy
    double Rs = 0;   // overstrength Yy / Vs
    double Rm1 = 0;  // elastic force of equal energy over Yy
    double Rm2 = 0;  // Miranda-Bertero, alluvium
    double Ru = 0;   // min(Rm1, Rm2) x Rs
};

/// Nothing when Vs, T, du, Xy, Yy or Ke is 0 (A may be 0: it gives Rm1 and Ru of 0).
/// Failure: 11 for a ductility of 12 (12 T equal to miu T) or phi of 0, 5 for T below 0 or
/// 2 A / Ke below 0, 6 on overflow.
std::optional<ResponseModification> response_modification(const ResponseModificationInputs& in);

}  // namespace tv::compute
