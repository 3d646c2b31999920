#include "compute/coefficient/response_modification.h"

#include <cmath>

#include "text/checked.h"

namespace tv::compute {

using text::chk;
using text::div;
using text::pow_;

std::optional<ResponseModification> response_modification(const ResponseModificationInputs& in) {
    if (in.Vs == 0 || in.T == 0 || in.Xy == 0 || in.du == 0 || in.Yy == 0 || in.Ke == 0) return std::nullopt;
    ResponseModification out;
    const double T = in.T;
    out.miu = div(in.du, in.Xy);
    // The natural logarithm taken through a rounded e, as the formula was written.
    double w = text::log_(T) / std::log(2.718282);
    double e = text::exp_(-2 * pow_(w - 0.2, 2));
    double phi = chk(1 + div(1, chk(12 * T - chk(out.miu * T))) - div(2, 5 * T) * e);
    out.Rm2 = chk(div(out.miu - 1, phi) + 1);
    out.Rs = div(in.Yy, in.Vs);
    double d = pow_(div(chk(2 * in.A), in.Ke), 0.5);
    double Ve = chk(d * in.Ke);
    out.Rm1 = div(Ve, in.Yy);
    double Rm = out.Rm1 <= out.Rm2 ? out.Rm1 : out.Rm2;
    out.Ru = chk(Rm * out.Rs);
    return out;
}

}  // namespace tv::compute
