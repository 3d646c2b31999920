#include "compute/coefficient/bilinear_fit.h"

#include <cmath>
#include <string>

#include "text/format.h"
#include "text/number_text.h"
#include "text/rounding.h"

namespace tv::compute {

using text::chk;
using text::div;

double pushover_area(const PushoverPoints& points, long selected_step) {
    double A = 0.0;
    for (long i = 1; i <= selected_step; ++i) {
        const PushoverPoint& p = points(i);
        const PushoverPoint& q = points(i - 1);
        A = chk(A + chk(chk(p.BaseForce + q.BaseForce) / 2 * chk(p.Displacement - q.Displacement)));
    }
    return A;
}

double slope_step(double k_initial) {
    long digits = static_cast<long>(text::format(k_initial, "0").size());
    // The old code built "1" and L - 4 zeros; a negative count was its failure.
    if (digits - 4 < 0) text::raise(text::kInvalidCall);
    return text::val("1" + std::string(static_cast<std::size_t>(digits - 4), '0'));
}

StartSlope start_slope(const PushoverPoints& points, long selected_step, double k_selected, double k_initial) {
    StartSlope out{k_initial, 0};
    for (long i = 1; i <= selected_step; ++i) {
        out.k_initial = div(points(i).BaseForce, points(i).Displacement);
        if (out.k_initial > k_selected) {
            out.point = i;
            break;
        }
    }
    return out;
}

float scan_progress_maximum(double k_initial, double k_selected, double step) {
    return static_cast<float>(text::int_div(std::fabs(chk(k_initial - k_selected)), step));
}

bool IsBetweenRounded(double a, double b, double c) {
    a = text::round_to(a, 4);
    b = text::round_to(b, 4);
    c = text::round_to(c, 4);
    if (!(b < a)) return a <= c && c <= b;
    return b <= c && c <= a;
}

Crossing evaluate_crossing(const PushoverPoints& points, long selected_step, double K) {
    Crossing out;
    for (long i = 2; i <= selected_step; ++i) {
        const PushoverPoint& p = points(i);
        const PushoverPoint& q = points(i - 1);
        double dx = chk(p.Displacement - q.Displacement);
        double dy = chk(p.BaseForce - q.BaseForce);
        // A vertical segment gets a very steep slope instead of a failure.
        double s = dx == 0.0 ? div(dy, 1e-11) : div(dy, dx);
        if (s < K) {
            out.x = div(chk(q.BaseForce - chk(s * q.Displacement)), chk(K - s));
            out.y = chk(out.x * K);
            if (IsBetweenRounded(q.Displacement, p.Displacement, out.x) && IsBetweenRounded(q.BaseForce, p.BaseForce, out.y)) {
                out.found = true;
                break;
            }
        }
    }
    return out;
}

YieldPoint yield_from_crossing(double y, double K, double Z) {
    YieldPoint out;
    out.Yy = chk(div(1.0, Z) * y);
    out.Xy = div(out.Yy, K);
    return out;
}

double bilinear_area(const PushoverPoints& points, long selected_step, double Xy, double Yy) {
    const PushoverPoint& t = points(selected_step);
    return chk(chk(chk(Xy * Yy) / 2) + chk(chk(t.BaseForce + Yy) / 2 * chk(t.Displacement - Xy)));
}

bool area_matches(double pushover_area, double bilinear_area, double tolerance) {
    return (1 - tolerance) * bilinear_area <= pushover_area && (1 + tolerance) * bilinear_area >= pushover_area;
}

double post_yield_ratio(double X, double Y, double Xt, double Yt) {
    double p = div(chk(Yt - Y), chk(Xt - X));
    double e = div(Y, X);
    return div(p, e);
}

double initial_stiffness(const PushoverPoints& points, double point_number) {
    const PushoverPoint& p = points.at(point_number);
    return div(p.BaseForce, p.Displacement);
}

}  // namespace tv::compute
