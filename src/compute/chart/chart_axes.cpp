#include "compute/chart/chart_axes.h"

#include <algorithm>
#include <cmath>
#include <utility>

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

namespace {

// The round step (1, 2 or 5 x 10^k) of at least `least` for which `fits` holds, and how many
// ticks divide it: 5 for 1 and 5, 4 for 2.
std::pair<double, int> round_step(double least, const std::function<bool(double)>& fits) {
    if (!(least > 0)) least = 1;
    double p = std::pow(10.0, std::floor(std::log10(least)));
    for (;;) {
        for (int m : {1, 2, 5}) {
            double step = m * p;
            // A hair under the least step counts: 0.3 x 800 / 2400 is not quite 0.1.
            if (step >= least * (1 - 1e-9) && fits(step)) return {step, m == 2 ? 4 : 5};
        }
        p *= 10;
        if (!std::isfinite(p)) text::raise(text::kOverflow);
    }
}

// Labels of the diagram: the 800-twip step and room for the widest of them.
std::pair<double, int> diagram_step(double user_width, double width_twips, double least_gap,
                                    const std::function<double(const std::string&)>& text_width) {
    double n = text::div(text::chk(user_width * kLabelSpacing), width_twips);
    auto fits = [&](double step) {
        double last = std::floor(user_width / step) * step;
        double widest = std::max(text_width(text::format(0.0, "0.00")), text_width(text::format(last, "0.00")));
        // Half a label more, for the end labels that are pushed inside the strip.
        return step * width_twips / user_width >= 1.5 * widest + least_gap;
    };
    if (!(user_width > 0) || !std::isfinite(n)) return {1.0, 5};
    return round_step(n, fits);
}

// Room between two labels of the diagram's abscissa, twips.
constexpr double kDiagramLabelGap = 200;

}  // namespace

double diagram_label_step(double user_width, double width_twips, double least_gap,
                          const std::function<double(const std::string&)>& text_width) {
    return diagram_step(user_width, width_twips, least_gap, text_width).first;
}

std::vector<AxisMark> diagram_marks(double user_width, double width_twips, int scroll_value, double strip_width,
                                    const std::function<double(const std::string&)>& text_width) {
    if (user_width == 0) text::raise(text::kInvalidCall);  // a plot of no width has no twips
    auto [step, parts] = diagram_step(user_width, width_twips, kDiagramLabelGap, text_width);
    const double tick = step / parts;
    const std::int32_t o = text::to_int32(scroll_value * kScrollStep);
    std::vector<AxisMark> marks;
    // Counted in whole ticks, so that labels stay exact multiples of the step.
    for (long k = 0; k * tick <= user_width * (1 + 1e-12); ++k) {
        const bool labelled = k % parts == 0;
        const double value = labelled ? static_cast<double>(k / parts) * step : static_cast<double>(k) * tick;
        AxisMark m{value, 0, labelled, {}, 0, labelled ? 2 : 1};
        m.x = text::to_int32(value * width_twips / user_width) - o;
        m.label_x = m.x;
        if (labelled) {
            m.label = text::format(value, "0.00");
            const double w = text_width(m.label);
            m.label_x = m.x - text::to_int32(w / 2);
            // The labels at the ends stand whole beside their ticks rather than half cut off.
            if (m.x >= 0 && m.x <= strip_width) {
                if (m.label_x + w > strip_width) m.label_x = text::to_int32(strip_width - w);
                if (m.label_x < 0) m.label_x = 0;
            }
        }
        marks.push_back(std::move(m));
    }
    return marks;
}

double legible_value_step(double step, double least_gap) {
    if (!(least_gap > 0) || !std::isfinite(least_gap) || !(step > 0)) return step;
    // A tenth stands 0.2 apart on the strip.
    double m = std::ceil(least_gap / (step * 0.2) - 1e-9);
    if (m < 1) m = 1;
    return m * step;
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
