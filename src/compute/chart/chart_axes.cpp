#include "compute/chart/chart_axes.h"

#include <cmath>

#include "compute/chart/chart_scaling.h"
#include "text/checked.h"
#include "text/format.h"
#include "text/number_text.h"
#include "text/rounding.h"

namespace tv::compute::chart {

double time_label_step(double total_seconds, double plot_width_twips) {
    double n = text::div(total_seconds * kLabelSpacing, plot_width_twips);
    if (n < 1) n = 1;
    return n;
}

std::vector<TimeTick> time_ticks(double user_width, double width_twips, double dt, int scroll_value,
                                 TimeLabels rule, const std::function<double(const std::string&)>& text_width) {
    double total = text::chk(user_width * dt);
    double n = rule == TimeLabels::Spaced ? time_label_step(total, width_twips) : 1.0;
    std::vector<TimeTick> ticks;
    // The last label's half width and the scroll offset carry over to the unlabelled ticks.
    std::int32_t h = 0, o = 0;
    for (double i = 0; i <= total; i += 1) {
        double units = text::div(i, dt);
        if (user_width == 0) text::raise(text::kInvalidCall);  // a plot of no width has no twips
        std::int32_t x = text::to_int32(units * width_twips / user_width);
        TimeTick t{i, 0, false, {}, 1};
        if (text::mod(i, n) == 0) {
            t.label = text::to_text(i);
            h = text::to_int32(text_width(t.label) / 2);
            o = text::to_int32(scroll_value * kScrollStep);
            t.labelled = true;
            t.line_width = 2;
        }
        t.x = x - h - o;
        ticks.push_back(std::move(t));
    }
    return ticks;
}

double value_label_step(double peak, double scale_factor) {
    double n = text::floor_int(text::div(peak, text::div(0.35, scale_factor)));
    if (n < 1) n = 1;
    return n;
}

std::vector<ValueTick> value_ticks(double scale_height, double step, ValueSteps rule) {
    double h = std::fabs(scale_height / 2);
    if (!std::isfinite(h)) text::raise(text::kOverflow);
    if (!(step >= 1)) text::raise(text::kInvalidCall);
    double start = rule == ValueSteps::Fourier ? text::floor_int(h * 0.5) : text::floor_int(h * -10);
    double end = h * 10;
    std::vector<ValueTick> ticks;
    for (double j = start; j <= end; j += step) {
        ticks.push_back({j, j / -5 - 0.05, text::format(j / 10, "0.0"), j / -5});
    }
    return ticks;
}

}  // namespace tv::compute::chart
