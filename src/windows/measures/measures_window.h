#pragma once
// The measures window: intensity and duration measures of the record in work, both components,
// with its acceleration, velocity, displacement and Husid charts, and the processing panel that
// previews a baseline correction and a filter against the original, applies them to the
// project's record and undoes them.
#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "compute/measures/ground_motion_measures.h"
#include "compute/measures/record_processing.h"
#include "windows/chart/chart_data.h"
#include "windows/program.h"

namespace tv::windows {

class MeasuresWindow : public Window {
public:
    explicit MeasuresWindow(forms::App& app);

    forms::Label& Message = label("Message", "");
    forms::Grid& MeasureTable = grid("MeasureTable", 12, 4);
    forms::PictureBox& AccelPlot = picture("AccelPlot", kPlotWidth, kPlotHeight);
    forms::PictureBox& VelocityPlot = picture("VelocityPlot", kPlotWidth, kPlotHeight);
    forms::PictureBox& DisplacementPlot = picture("DisplacementPlot", kPlotWidth, kPlotHeight);
    forms::PictureBox& HusidPlot = picture("HusidPlot", kPlotWidth, kPlotHeight);

    forms::Frame& Processing = frame("Processing", "Processing");
    forms::ComboBox& BaselineFit = combo("BaselineFit", &Processing);
    forms::TextBox& BaselineOrder = text_box("BaselineOrder", "2", &Processing);
    forms::ComboBox& FilterKind = combo("FilterKind", &Processing);
    forms::TextBox& LowCorner = text_box("LowCorner", "0.1", &Processing);
    forms::TextBox& HighCorner = text_box("HighCorner", "25", &Processing);
    forms::TextBox& FilterOrder = text_box("FilterOrder", "4", &Processing);
    forms::TextBox& Pads = text_box("Pads", "0", &Processing);
    forms::CheckBox& ZeroPhase = check_box("ZeroPhase", "Zero-phase", &Processing);
    forms::CommandButton& Preview = button("Preview", "Preview", &Processing);
    forms::CommandButton& Apply = button("Apply", "Apply", &Processing);
    forms::CommandButton& Undo = button("Undo", "Undo", &Processing);

    static constexpr double kPlotWidth = 6000;
    static constexpr double kPlotHeight = 2200;

    /// Takes the record in work: record r of the project, step dt (s), and `read`, X and Y of its
    /// lines from `first` as read from the tables. A record processed before shows processed
    /// against them, and Undo gives them back.
    void open_record(std::int32_t record, std::int32_t first, double dt, std::array<std::vector<double>, 2> read);
    /// Called when processing changed the project's record, for the window that shows it.
    std::function<void()> record_changed;

    /// Measures of what the window shows now, component 'X' or 'Y'; null when they failed.
    const compute::MotionMeasures* shown_measures(char component) const;

    /// The numbers `plot` draws now: the time, then each curve with its heading and unit; empty
    /// when it draws none.
    std::vector<DataColumn> drawn_data(const forms::PictureBox& plot) const;

    void Preview_Click();
    void Apply_Click();
    void Undo_Click();

    /// The four charts show the part of the record from `from` for `span`, fractions of its
    /// length (0 and 1: the whole; at most kLeastSpan close); their time labels follow.
    void set_time_view(double from, double span);
    /// Zooms the charts' time `factor` times about the point of a chart at `x` (twips).
    void zoom_time(double x, double factor);
    double time_view_from() const { return view_from_; }
    double time_view_span() const { return view_span_; }
    static constexpr double kLeastSpan = 0.01;

private:
    struct Component {
        std::vector<double> original;   // as the project held it when the window opened
        std::vector<double> shown;      // original or processed
        compute::MeasuresOutcome before, now;
    };

    /// The options of the panel, or a message naming the box that is wrong.
    bool read_options(compute::ProcessingOptions& options);
    /// Both components processed into `out`; false (and the message shown) on failure.
    bool process(std::array<std::vector<double>, 2>& out, compute::ProcessingOptions& options);
    void display(bool against_original);
    void draw_charts();
    /// Where `x` (twips) falls across a chart's frame, 0 to 1.
    double frame_fraction(double x) const;
    /// A chart's mouse: kind 0 down, 1 move, 2 up.
    void plot_mouse(int kind, int button, double x);
    /// A chart's curves in the order they are drawn, with their colours and names.
    struct NamedCurve {
        const std::vector<double>* values;
        int colour;
        const char* name;
    };
    std::vector<NamedCurve> curves_of(std::size_t panel) const;
    std::array<forms::PictureBox*, 4> plots() const;
    /// Writes the samples into the record's arrays and notes the processing (none: off).
    void write_to_project(const std::array<std::vector<double>, 2>& samples, const compute::ProcessingOptions& options);

    std::int32_t record_ = 0, first_ = 0;
    double dt_ = 0;
    std::array<Component, 2> components_;
    bool applied_ = false;
    bool against_original_ = false;
    double view_from_ = 0, view_span_ = 1;
    std::optional<double> drag_x_;
};

/// X and Y (`in`) processed by `options` into `out`; the message ("X: why") on failure, "" when done.
std::string process_pair(const std::array<std::vector<double>, 2>& in, double dt, const compute::ProcessingOptions& options,
                         std::array<std::vector<double>, 2>& out);

}  // namespace tv::windows
