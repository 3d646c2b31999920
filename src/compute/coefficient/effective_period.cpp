#include "compute/coefficient/effective_period.h"

#include "text/checked.h"

namespace tv::compute {

double effective_stiffness(double Xy, double Yy) { return text::div(Yy, Xy); }

double effective_period(double Ti, double k_initial, double Ke) {
    return text::chk(Ti * text::pow_(text::div(k_initial, Ke), 0.5));
}

}  // namespace tv::compute
