#include "compute/coefficient/target_displacement.h"

#include <cmath>

#include "text/checked.h"

namespace tv::compute {

using text::chk;
using text::div;
using text::pow_;

std::optional<double> c0_coefficient(double stories, int column) {
    static constexpr double table[5][3] = {
        {1, 1, 1}, {1.15, 1.2, 1.2}, {1.2, 1.2, 1.3}, {1.2, 1.25, 1.35}, {1.2, 1.3, 1.4}};
    if (column < 1 || column > 3) return std::nullopt;
    for (int n = 1; n <= 5; ++n)
        if (stories == n) return table[n - 1][column - 1];
    if (stories > 5) {
        if (column == 1) return 1.2;
        if (column == 2) return 1.3;
        if (stories < 10) return (7 + 0.1 * (stories - 5)) / 5;
        return 1.5;
    }
    return std::nullopt;
}

double cm_factor(double stories, int column) {
    if (stories == 1 || stories == 2) return 1;
    switch (column) {
        case 1: return 0.9;
        case 2: return 0.9;
        case 3: return 0.8;
        default: return 1;
    }
}

double soil_constant(bool soil1, bool soil2, bool soil34) {
    double a = 0;
    if (soil34) a = 60;
    if (soil1) a = 130;
    if (soil2) a = 90;
    return a;
}

double post_yield_alpha(double Vu, double Vy, double du, double Xy, double Ki) {
    return div(div(chk(Vu - Vy), chk(du - Xy)), Ki);
}

double strength_ratio(double Cm, double Sa, double Vy, double W) { return chk(Cm * div(Sa, div(Vy, W))); }

double c1_coefficient(double Te, double R, double a) {
    if (Te > 1) return 1;
    if (Te > 0.2) return chk(1 + div(R - 1, chk(a * pow_(Te, 2))));
    return chk(1 + div(chk(25 * (R - 1)), a));
}

double c2_coefficient(double Te, double R) {
    if (Te < 0.7) return chk(1 + chk(1.0 / 800 * pow_(div(R - 1, Te), 2)));
    return 1;
}

double c3_coefficient(double alpha, double R, double Te) {
    if (alpha < 0 && R >= 1) return chk(1 + div(chk(std::fabs(alpha) * pow_(R - 1, 1.5)), Te));
    return 1;
}

double rmax_exponent(double Te) { return 1 + 0.15 * text::log_(Te); }

double target_displacement(double C0, double C1, double C2, double Sa, double Te) {
    return div(chk(C0 * C1 * C2 * Sa * kGravity * pow_(Te, 2)), 4 * pow_(3.1416, 2));
}

double governing_displacement(double d, double limit) { return d > limit ? d : limit; }

double rmax_ratio(double dm, double dy, bool use_alpha_e, double alpha_e, double h) {
    if (use_alpha_e) return chk(div(dm, dy) + pow_(std::fabs(alpha_e), -h) / 4);
    return div(dm, dy);
}

void coefficient_method(const CoefficientMethodInputs& in, CoefficientMethodResult& out) {
    out = CoefficientMethodResult{};
    out.Alpha = in.Vy != 0 && in.Xy != 0 ? post_yield_alpha(in.Vu, in.Vy, in.du, in.Xy, in.Ki) : 0;
    out.R = strength_ratio(in.Cm, in.Sa, in.Vy, in.W);
    out.C2 = c2_coefficient(in.Te, out.R);
    out.C1 = c1_coefficient(in.Te, out.R, in.a);
    out.C3 = in.C3 ? *in.C3 : c3_coefficient(out.Alpha, out.R, in.Te);
    out.h = rmax_exponent(in.Te);
    out.d = target_displacement(in.C0, out.C1, out.C2, in.Sa, in.Te);
    out.dm = governing_displacement(out.d, in.displacement_limit);
    out.Rmax = rmax_ratio(out.dm, in.dy, in.use_alpha_e, in.alpha_e, out.h);
}

}  // namespace tv::compute
