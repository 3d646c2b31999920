#include "compute/chart/chart_scaling.h"

#include <cmath>

#include "text/checked.h"
#include "text/number_text.h"
#include "text/rounding.h"

namespace tv::compute::chart {

double largest_abs(const std::vector<double>& values) {
    double amax = 0;
    for (double v : values) {
        double a = std::fabs(v);
        if (a > amax) amax = a;
    }
    return amax;
}

double peak_field_range(double peak_x, double peak_y) {
    double mx = text::round_to(text::round15(peak_x), 8);
    double my = text::round_to(text::round15(peak_y), 8);
    double m = mx > my ? mx : my;
    return 1.2 * m;
}

double element_range(double amax, RangeRule rule) {
    switch (rule) {
        case RangeRule::Largest: return 1.2 * amax;
        case RangeRule::LargestWide: return 1.5 * amax;
        case RangeRule::PeakFields: break;
    }
    text::raise(text::kInvalidCall);
}

double curve_factor(double range, double amax) { return text::div(range / 1.2, amax); }

double plot_width(int slider) { return slider * kWidthUnit; }

std::int16_t scroll_max(int slider) { return text::to_int16((slider - 1) * kWidthUnit / kScrollStep); }

double scroll_left(int scroll_value) { return -kScrollStep * scroll_value; }

}  // namespace tv::compute::chart
