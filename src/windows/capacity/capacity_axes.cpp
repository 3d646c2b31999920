#include "windows/capacity/capacity_axes.h"

#include <algorithm>

#include "compute/chart/chart_axes.h"

namespace tv::windows {

namespace cc = compute::chart;

namespace {

// Room a value label needs, in text heights: the text and half of it clear, so that the end
// labels, pushed inside the strip by up to half a height, still stand clear.
constexpr double kValueLabelRoom = 1.5;

}  // namespace

void draw_legible_value_strip(Chart& chart, double peak) {
    forms::PictureBox& strip = chart.PicySxale;
    const double s = chart.picNemodar.scale_height();
    strip.cls();
    strip.scale(0, s, 100, -s);
    const double step = cc::legible_value_step(cc::value_label_step(peak, 1.0), kValueLabelRoom * strip.text_height());
    // Each label centred on its tick: lifted by half of this font's height; at the top and the
    // bottom it stays whole inside the strip, beside its tick. The first label may lie below the
    // range: its tick is out of sight, and so is its text.
    const double height = strip.text_height();
    const double lowest = std::min(s, -s), highest = std::max(s, -s);
    for (const auto& t : cc::value_ticks(s, step, cc::ValueSteps::PeakRule)) {
        if (t.tick_y >= lowest && t.tick_y <= highest) {
            double top = t.tick_y - height / 2;
            if (top + height > highest) top = highest - height;
            if (top < lowest) top = lowest;
            strip.set_current_y(top);
            strip.set_current_x(0);
            strip.print(t.label);
        }
        strip.set_draw_width(1);
        strip.line(80, t.tick_y, 100, t.tick_y);
    }
    strip.refresh();
}

void draw_diagram_abscissa(Chart& chart) {
    forms::PictureBox& strip = chart.PicxSxale;
    strip.cls();
    const auto marks = cc::diagram_marks(chart.picNemodar.scale_width(), chart.picNemodar.width(),
                                         chart.HScroll1.value(), strip.width(),
                                         [&strip](const std::string& s) { return strip.text_width(s); });
    draw_time_strip(strip, marks);
}

}  // namespace tv::windows
