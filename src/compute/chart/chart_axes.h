#pragma once
// The two axis strips of the curve chart: ticks and labels of the time strip in twips, and of
// the value strip in its own doubled, upside-down scale.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tv::compute::chart {

/// Twips of plot that one time label should hold, about.
inline constexpr double kLabelSpacing = 800;

/// How far apart the time labels stand.
enum class TimeLabels {
    Spaced,      // about every 800 twips of plot, never closer than a second
    EverySecond, // at every tick
};

/// How far apart the value labels stand, in tenths.
enum class ValueSteps {
    PeakRule,  // Int(peak / (0.35 / scale factor)), at least 1
    Tenth,     // every 0.1
    Fourier,   // every 0.1, counted from Int(H x 0.5) instead of Int(-10 H)
};

/// One tick of the time strip. All positions are twips of the strip.
struct TimeTick {
    double second;       // the time of the tick, whole seconds
    std::int32_t x;      // where the tick stands, shifted by the last label's half width and the scroll
    bool labelled;       // a label stands here, printed at (x, 100), and the tick is 2 wide
    std::string label;   // the text of `second`, empty when not labelled
    int line_width;      // 2 for a labelled tick, 1 otherwise
};

/// Label step n in seconds: total_seconds x 800 / plot width, at least 1; not rounded.
/// A plot width of 0 raises 11 (6 with no time).
double time_label_step(double total_seconds, double plot_width_twips);

/// Ticks for i = 0, 1, ... up to D = user_width x dt seconds. A tick stands at i / dt plot
/// units, converted to twips (x width / user_width) and rounded; a label stands where
/// i Mod n is 0 (both rounded first); every position is shifted left by half the width of the
/// last label and by 100 twips per scroll step. text_width gives a text's width in twips.
/// dt 0 raises 6 (0 / 0 at the first tick); a user width of 0 raises 5.
std::vector<TimeTick> time_ticks(double user_width, double width_twips, double dt, int scroll_value,
                                 TimeLabels rule, const std::function<double(const std::string&)>& text_width);

/// One mark of the capacity diagram's abscissa strip, twips of the strip.
struct AxisMark {
    double value;        // the abscissa it marks, plot units
    std::int32_t x;      // where the tick stands: the value's own place, less the scroll
    bool labelled;       // a label stands here, centred on the tick, and the tick is 2 wide
    std::string label;   // value by "0.00"; empty when not labelled
    std::int32_t label_x;  // left of the label: x less half its width
    int line_width;      // 2 for a labelled tick, 1 otherwise
};

/// Round label step of the diagram's abscissa: the smallest of 1, 2 or 5 times a power of ten
/// that is at least the 800-twip step (user_width x 800 / width_twips) and that leaves
/// `least_gap` twips between the widest labels of "0.00". A plot width of 0 raises 11.
double diagram_label_step(double user_width, double width_twips, double least_gap,
                          const std::function<double(const std::string&)>& text_width);

/// Marks from 0 to user_width: ticks a fifth of the label step apart (a quarter for a step of
/// 2 x 10^k), a label "0.00" at every label step, so neither ticks nor labels run together at
/// any length unit. A label whose tick is in sight is kept whole inside the strip's width.
/// A user width of 0 raises 5.
std::vector<AxisMark> diagram_marks(double user_width, double width_twips, int scroll_value, double strip_width,
                                    const std::function<double(const std::string&)>& text_width);

/// One tick of the value strip, in the strip's scale (a plot value v stands at -2v).
struct ValueTick {
    double j;           // tenths
    double text_y;      // current y before printing: j / -5 - 0.05
    std::string label;  // j / 10 by "0.0"
    double tick_y;      // the tick runs from (80, tick_y) to (100, tick_y): j / -5
};

/// Peak rule step in tenths: Int(peak / (0.35 / scale_factor)), at least 1. A scale factor
/// of 0 raises 11.
double value_label_step(double peak, double scale_factor);

/// The smallest multiple of `step` (tenths) whose labels stand at least `least_gap` apart, in
/// the strip's units where a tenth is 0.2: labels that would print over each other are thinned.
double legible_value_step(double step, double least_gap);

/// Ticks for j from Int(-10 H) (Int(0.5 H) for Fourier) to 10 H by `step`, H = |scale_height / 2|.
/// A scale height that is not finite raises 6; a step below 1 raises 5.
std::vector<ValueTick> value_ticks(double scale_height, double step, ValueSteps rule);

}  // namespace tv::compute::chart
