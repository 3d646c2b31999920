#pragma once
// The curve chart that every curve window carries: a plot wider than its viewport, a time strip
// below and a value strip at the left, the X scale slider, the scroll bar and the mouse
// read-out. A window holds one as a member; the chart answers its own controls' events.
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "compute/chart/chart_axes.h"
#include "compute/chart/chart_scaling.h"
#include "forms/form.h"
#include "text/checked.h"
#include "windows/chart/chart_data.h"

namespace tv::windows {

/// Form12's plot: each segment is drawn `repeat` times, and a flat mark stands where a picked
/// peak equals the sample.
struct ChartMarks {
    std::function<double()> repeat;           // number of Text8; empty: every segment once
    std::function<bool()> on;                 // Check1 ticked
    std::function<double(long p)> peak;       // number in Grid3 row p, column 2
    std::function<double()> width;            // w = 0.5 / number of Text2, rounded to 1 decimal
    int colour = 270;
};

/// The read-out label under the chart and its text:
/// x_text + (X x step, "0.00") + y_text + (value, "0.00") + two blanks.
struct ChartReadout {
    std::string label;                 // name of the label, "Label8"; empty: the window has none
    std::string caption;               // its first caption, "0 Sec"
    std::string x_text = "t: ";
    std::string y_text = " , Accel: ";
    std::function<double()> x_step;    // xstep by the strict conversion, periodStep ...; may raise
    bool x_from_index = false;         // multiply the rounded index instead of the pointer's X
};

/// The differences between the charts of the windows.
struct ChartOptions {
    compute::chart::RangeRule range = compute::chart::RangeRule::Largest;
    /// PeakFields: the window's two peak fields (curMaxX, curMaxY).
    std::function<std::pair<double, double>()> peak_fields;
    /// Multiply the curve by k = (r / 1.2) / amax.
    bool scale_to_peak = false;
    /// Colour of the curve, 0xBBGGRR; -1 the default colour.
    int colour = 0x0000FF;
    /// Several curves on one chart: only a curve of colour 255 sets the range and clears.
    bool only_red_sets_range = false;
    /// The largest value the other curves will draw, so that the red curve's range holds them
    /// too; empty or 0: the red curve's own.
    std::function<double()> range_holds;
    ChartMarks marks;

    compute::chart::TimeLabels time_labels = compute::chart::TimeLabels::Spaced;
    /// The step the time strip reads (number of xstep, periodStep ...); empty: the dt of the plot.
    std::function<double()> time_step;

    compute::chart::ValueSteps value_steps = compute::chart::ValueSteps::PeakRule;
    /// PeakRule: the peak (number of xvalue, peakAccel) and the scale factor (empty: 1).
    std::function<double()> value_peak;
    std::function<double()> value_scale;

    ChartReadout readout;
    /// Run after a slider change to draw the window's array again (with rescale).
    std::function<void()> replot;
    /// The array the mouse read-out reads at a rounded index; may raise.
    std::function<double(long index)> value_at;
    /// A read-out of the window's own in place of the chart's; with neither this nor value_at
    /// the plot does not answer the mouse.
    std::function<void(double x, double y)> mouse_move;
    /// Run after the plot slides, for strips the window draws over the chart's.
    std::function<void()> scrolled;
    /// The axes' titles with their units ("T (s)", "Sa (g)"): on the screen and in the saved data.
    std::string x_title;
    std::string y_title;
    /// The name of the curve of each colour where several share the chart (colour, name).
    std::vector<std::pair<int, std::string>> curve_names;

    /// Container of the chart's controls; null for the window itself.
    forms::Control* container = nullptr;
    int slider_max = 10;
};

class Chart {
public:
    // Layout in twips.
    static constexpr double kPlotHeight = 3300;      // viewport and plot
    static constexpr double kValueStripWidth = 900;  // PicySxale
    static constexpr double kTimeStripHeight = 400;  // PicxSxale

    Chart(forms::Form& form, ChartOptions options);
    Chart(const Chart&) = delete;
    Chart& operator=(const Chart&) = delete;

    // Controls, under the names every chart window gives them.
    forms::PictureBox& picContainer;
    forms::PictureBox& picNemodar1;
    forms::PictureBox& picNemodar;
    forms::PictureBox& PicxSxale;
    forms::PictureBox& PicySxale;
    forms::LineShape& Line2;
    forms::LineShape& Line3;
    forms::Slider& Slider1;
    forms::HScrollBar& HScroll1;
    forms::Label& Label6;
    forms::Label* readout = nullptr;  // Label8, Label7 ...; null when the window has none

    /// Fits the plot to `values` and draws it (index on x), then the axes. dt is what the time
    /// strip reads when the options give no step. Failures raise as the arithmetic does.
    void plot(const text::DoubleArray& values, double dt, bool rescale);
    /// The same in a colour of its own (Form4's average 255, target 50).
    void plot(const text::DoubleArray& values, double dt, bool rescale, int colour);

    /// Writes the time strip and the value strip from the plot's present scale.
    void drawAxes();

    /// True when the plot's scale has no width or no height (a range of 0, one element): such
    /// a chart shows nothing and raises nothing.
    bool empty() const;

    /// The cross-hair and the read-out that picNemodar MouseMove shows, under a trap that
    /// ignores every failure. value_at gives the array's value at a rounded index and may raise;
    /// the value then stays at the last one read.
    void mouse_move(double x, double y, const std::function<double(long index)>& value_at);

    /// Half height r of the present value range.
    double range() const { return range_; }
    /// The value the read-out shows now.
    double readout_value() const { return value_; }
    const ChartOptions& options() const { return options_; }

    /// The numbers the plot shows now: the time or period of each point, then one column per
    /// curve of the value drawn there. Empty when the window has drawn over the curves.
    std::vector<DataColumn> drawn_data() const;

    /// The mouse wheel over the plot, `viewport_x` twips from the viewport's left: the X scale
    /// `steps` up (in) or down (out), the point under the pointer kept where it stands.
    void zoom(int steps, double viewport_x);
    /// A drag: the plot follows the pointer by `dx` twips (a step of the scroll bar is 100).
    void pan(double dx);
    /// A double-click: the window's own scale, 1X from the start.
    void reset_view();

private:
    /// Slider1 Change: the Label6 caption, HScroll1 on unless at 1, then the options' replot.
    void slider_changed();
    /// HScroll1 Change and Scroll: the plot slides to -100 x value twips; the axes follow, then
    /// the options' scrolled.
    void scroll();
    void draw_curve(const text::DoubleArray& values, long upper, double k, int colour);
    void remember_curve(const text::DoubleArray& values, long upper, double k, int colour);

    /// A curve as drawn: its colour, the step of its abscissa and the value at each index.
    struct DrawnCurve {
        int colour;
        double step;
        std::vector<double> values;
    };

    ChartOptions options_;
    std::vector<DrawnCurve> drawn_;
    unsigned long drawn_revision_ = 0;
    double range_ = 0;
    double dt_ = 0;
    double value_ = 0;
};

/// Prints a time strip's ticks and labels: a label at (its left, 100) over a 2-wide tick, 1 wide
/// elsewhere; then refreshes the strip.
void draw_time_strip(forms::PictureBox& strip, const std::vector<compute::chart::TimeTick>& ticks);
void draw_time_strip(forms::PictureBox& strip, const std::vector<compute::chart::AxisMark>& marks);

}  // namespace tv::windows
