#include "windows/measures/measures_window.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "text/number_text.h"

namespace tv::windows {

namespace {

constexpr int kColourX = 0x0000C0;        // dark red
constexpr int kColourY = 0xC06000;        // blue
constexpr int kColourOriginal = 0xB0B0B0; // grey, under the processed curves
constexpr int kAxisColour = 0x000000;

// Margins of a plot, twips: room for the value labels at the left and the time at the bottom.
constexpr double kLeft = 950, kRight = 150, kTop = 300, kBottom = 350;
// More samples than this are drawn as one vertical stroke per column, so the peaks stay.
constexpr std::size_t kMaxColumns = 2000;

std::string number(double v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.6g", v);
    return buf;
}

struct Curve {
    const std::vector<double>* values;
    int colour;
};

void print_at(forms::PictureBox& p, double x, double y, const std::string& s) {
    p.set_current_x(x);
    p.set_current_y(y);
    p.print(s);
}

// One chart: the curves against time, a frame, the zero line, the value range and time end
// labelled, the title with its unit above and the time unit below.
// `from` and `span` are the part of the record in sight, as fractions of its length.
void draw_chart(forms::PictureBox& p, const std::vector<Curve>& curves, double dt, const std::string& title,
                double from = 0, double span = 1) {
    p.cls();
    p.scale_reset();
    std::size_t n = 0;
    for (const Curve& c : curves) n = std::max(n, c.values->size());
    // The samples in sight: i0 to i1, the first and last reaching the frame's edges.
    const double last = n > 1 ? static_cast<double>(n - 1) : 0;
    const double first_x = from * last;
    const auto i0 = static_cast<std::size_t>(std::floor(first_x));
    const auto i1 = std::min(n > 0 ? n - 1 : 0, static_cast<std::size_t>(std::ceil((from + span) * last)));
    double lo = 0, hi = 0;
    for (const Curve& c : curves)
        for (std::size_t i = i0; i <= i1 && i < c.values->size(); ++i) {
            lo = std::min(lo, (*c.values)[i]);
            hi = std::max(hi, (*c.values)[i]);
        }
    const double w = p.width() - kLeft - kRight, h = p.height() - kTop - kBottom;
    print_at(p, 60, 30, title);
    p.line(kLeft, kTop, kLeft + w, kTop, kAxisColour);
    p.line(kLeft + w, kTop, kLeft + w, kTop + h, kAxisColour);
    p.line(kLeft + w, kTop + h, kLeft, kTop + h, kAxisColour);
    p.line(kLeft, kTop + h, kLeft, kTop, kAxisColour);
    if (n < 2 || hi == lo) {
        p.refresh();
        return;
    }
    const double t_end = static_cast<double>(n - 1) * dt;
    auto x_of = [&](double i) { return kLeft + w * (i - first_x) / (last * span); };
    auto y_of = [&](double v) { return kTop + h * (hi - v) / (hi - lo); };
    p.line(kLeft, y_of(0), kLeft + w, y_of(0), kColourOriginal);
    const double th = p.text_height();
    // A value label wider than the margin starts at the picture's edge rather than beyond it.
    auto left_of_frame = [&](const std::string& s) { return std::max(0.0, kLeft - p.text_width(s) - 60); };
    print_at(p, left_of_frame(number(hi)), kTop - th / 2, number(hi));
    print_at(p, left_of_frame(number(lo)), kTop + h - th / 2, number(lo));
    print_at(p, kLeft, kTop + h + 40, number(from * t_end));
    const std::string end = number((from + span) * t_end) + " s";
    print_at(p, kLeft + w - p.text_width(end), kTop + h + 40, end);
    print_at(p, kLeft + w / 2 - p.text_width("Time (s)") / 2, kTop + h + 40, "Time (s)");
    for (const Curve& c : curves) {
        const std::vector<double>& v = *c.values;
        if (v.size() < 2 || i0 >= v.size()) continue;
        const std::size_t end_i = std::min(v.size(), i1 + 1);
        if (end_i - i0 <= kMaxColumns) {
            for (std::size_t i = i0 + 1; i < end_i; ++i)
                p.line(x_of(static_cast<double>(i - 1)), y_of(v[i - 1]), x_of(static_cast<double>(i)), y_of(v[i]),
                       c.colour);
            continue;
        }
        const std::size_t per = (end_i - i0 + kMaxColumns - 1) / kMaxColumns;
        for (std::size_t start = i0; start < end_i; start += per) {
            const std::size_t stop = std::min(end_i, start + per);
            const auto [mn, mx] = std::minmax_element(v.begin() + static_cast<long>(start), v.begin() + static_cast<long>(stop));
            const double x = x_of(static_cast<double>(start));
            p.line(x, y_of(*mn), x, y_of(*mx), c.colour);
            if (start > i0) p.line(x_of(static_cast<double>(start - 1)), y_of(v[start - 1]), x, y_of(v[start]), c.colour);
        }
    }
    p.refresh();
}

struct Row {
    const char* name;
    const char* unit;
    double compute::MotionMeasures::*value;
};

constexpr std::array<Row, 11> kRows{{
    {"PGA", "g", &compute::MotionMeasures::pga},
    {"PGV", "m/s", &compute::MotionMeasures::pgv},
    {"PGD", "m", &compute::MotionMeasures::pgd},
    {"Arias intensity", "m/s", &compute::MotionMeasures::arias},
    {"Significant duration D5-75", "s", &compute::MotionMeasures::d5_75},
    {"Significant duration D5-95", "s", &compute::MotionMeasures::d5_95},
    {"Bracketed duration (0.05 g)", "s", &compute::MotionMeasures::bracketed},
    {"CAV", "g*s", &compute::MotionMeasures::cav},
    {"Housner spectrum intensity", "m", &compute::MotionMeasures::housner},
    {"Predominant period Tp", "s", &compute::MotionMeasures::predominant_period},
    {"Mean period Tm", "s", &compute::MotionMeasures::mean_period},
}};

// The charts, top to bottom: the title above each, the quantity and unit of its saved data, and
// the history it shows (null: the acceleration).
struct Panel {
    const char* title;
    const char* quantity;
    const std::vector<double> compute::MotionMeasures::*history;
};

const std::array<Panel, 4> kPanels{{
    {"Acceleration (g)", "acceleration (g)", nullptr},
    {"Velocity (m/s)", "velocity (m/s)", &compute::MotionMeasures::velocity},
    {"Displacement (m)", "displacement (m)", &compute::MotionMeasures::displacement},
    {"Husid plot: Arias intensity / total (-)", "Arias intensity / total (-)", &compute::MotionMeasures::husid},
}};

}  // namespace

MeasuresWindow::MeasuresWindow(forms::App& app) : Window(app, "frmMeasures", "Ground-motion measures", 11000, 9000) {
    MeasureTable.set_text(0, 0, "Measure");
    MeasureTable.set_text(0, 1, "Unit");
    MeasureTable.set_text(0, 2, "X");
    MeasureTable.set_text(0, 3, "Y");
    MeasureTable.set_col_width(0, 2800);
    for (std::size_t k = 0; k < kRows.size(); ++k) {
        MeasureTable.set_text(static_cast<int>(k) + 1, 0, kRows[k].name);
        MeasureTable.set_text(static_cast<int>(k) + 1, 1, kRows[k].unit);
    }
    for (const char* s : {"None", "Fitted on the acceleration", "Fitted on the displacement"}) BaselineFit.add_item(s);
    BaselineFit.set_list_index(0);
    for (const char* s : {"None", "Low-pass", "High-pass", "Band-pass"}) FilterKind.add_item(s);
    FilterKind.set_list_index(0);
    Undo.set_enabled(false);
    Preview.Click = [this] { Preview_Click(); };
    Apply.Click = [this] { Apply_Click(); };
    Undo.Click = [this] { Undo_Click(); };
    // A drag along a chart pans all four through the record.
    for (forms::PictureBox* p : plots()) {
        p->MouseDown = [this](int button, int, double x, double) { plot_mouse(0, button, x); };
        p->MouseMove = [this](int button, int, double x, double) { plot_mouse(1, button, x); };
        p->MouseUp = [this](int button, int, double x, double) { plot_mouse(2, button, x); };
    }
}

void MeasuresWindow::open_record(std::int32_t record, std::int32_t first, double dt,
                                 std::array<std::vector<double>, 2> read) {
    record_ = record;
    first_ = first;
    dt_ = dt;
    view_from_ = 0;
    view_span_ = 1;
    set_caption("Ground-motion measures (" + std::to_string(record) + ")");
    // From the tables, never from the project's arrays: the Fourier window uses record 1's
    // arrays as its scratch space. Show Diagram has dropped processing that no longer fits.
    std::array<std::vector<double>, 2> processed;
    const compute::ProcessingOptions& options = state().recordProcessingOptions(record);
    applied_ = options.active() && process_pair(read, dt, options, processed).empty();
    Undo.set_enabled(applied_);
    for (std::size_t c = 0; c < 2; ++c) {
        Component& k = components_[c];
        k.shown = applied_ ? std::move(processed[c]) : read[c];
        k.original = std::move(read[c]);
        k.before = compute::ground_motion_measures(k.original, dt);
    }
    Message.set_caption(applied_ ? "Applied: " + state().recordProcessing(record) : "");
    display(applied_);
}

const compute::MotionMeasures* MeasuresWindow::shown_measures(char component) const {
    const Component& k = components_[component == 'X' ? 0 : 1];
    return k.now.ok() ? &k.now.measures : nullptr;
}

void MeasuresWindow::display(bool against_original) {
    std::string problems;
    for (std::size_t c = 0; c < 2; ++c) {
        Component& k = components_[c];
        k.now = compute::ground_motion_measures(k.shown, dt_);
        for (std::size_t r = 0; r < kRows.size(); ++r)
            MeasureTable.set_text(static_cast<int>(r) + 1, static_cast<int>(c) + 2,
                                  k.now.ok() ? number(k.now.measures.*kRows[r].value) : "");
        if (!k.now.ok()) problems += std::string(problems.empty() ? "" : "; ") + (c == 0 ? "X: " : "Y: ") + k.now.error;
    }
    if (!problems.empty()) Message.set_caption(problems);

    against_original_ = against_original;
    draw_charts();
}

void MeasuresWindow::draw_charts() {
    for (std::size_t panel = 0; panel < kPanels.size(); ++panel) {
        std::vector<Curve> curves;
        for (const NamedCurve& c : curves_of(panel)) curves.push_back({c.values, c.colour});
        draw_chart(*plots()[panel], curves, dt_, kPanels[panel].title, view_from_, view_span_);
    }
}

void MeasuresWindow::set_time_view(double from, double span) {
    span = std::clamp(span, kLeastSpan, 1.0);
    from = std::clamp(from, 0.0, 1.0 - span);
    if (from == view_from_ && span == view_span_) return;
    view_from_ = from;
    view_span_ = span;
    draw_charts();
}

double MeasuresWindow::frame_fraction(double x) const {
    const double w = AccelPlot.width() - kLeft - kRight;
    return std::clamp((x - kLeft) / w, 0.0, 1.0);
}

void MeasuresWindow::zoom_time(double x, double factor) {
    const double at = frame_fraction(x);
    const double t = view_from_ + at * view_span_;
    const double span = std::clamp(view_span_ / factor, kLeastSpan, 1.0);
    set_time_view(t - at * span, span);
}

void MeasuresWindow::plot_mouse(int kind, int button, double x) {
    if (kind == 0 && button == 1) drag_x_ = x;
    if (kind == 1 && button == 1 && drag_x_) {
        const double moved = (x - *drag_x_) / (AccelPlot.width() - kLeft - kRight) * view_span_;
        drag_x_ = x;
        set_time_view(view_from_ - moved, view_span_);
    }
    if (kind == 2) drag_x_.reset();
}

std::array<forms::PictureBox*, 4> MeasuresWindow::plots() const {
    return {&AccelPlot, &VelocityPlot, &DisplacementPlot, &HusidPlot};
}

std::vector<MeasuresWindow::NamedCurve> MeasuresWindow::curves_of(std::size_t panel) const {
    static const std::vector<double> none;
    auto history = [](const compute::MeasuresOutcome& m, const std::vector<double> compute::MotionMeasures::*h)
        -> const std::vector<double>* { return m.ok() ? &(m.measures.*h) : &none; };
    const Panel& ch = kPanels[panel];
    // The grey curves first, under the processed ones.
    std::vector<NamedCurve> curves;
    if (against_original_)
        for (std::size_t c = 0; c < 2; ++c) {
            const Component& k = components_[c];
            curves.push_back({ch.history ? history(k.before, ch.history) : &k.original, kColourOriginal,
                              c == 0 ? "X before processing" : "Y before processing"});
        }
    for (std::size_t c = 0; c < 2; ++c) {
        const Component& k = components_[c];
        curves.push_back({ch.history ? history(k.now, ch.history) : &k.shown, c == 0 ? kColourX : kColourY,
                          c == 0 ? "X" : "Y"});
    }
    return curves;
}

std::vector<DataColumn> MeasuresWindow::drawn_data(const forms::PictureBox& plot) const {
    std::vector<DataColumn> out;
    const auto all = plots();
    const auto at = std::find(all.begin(), all.end(), &plot);
    if (at == all.end()) return out;
    const std::size_t panel = static_cast<std::size_t>(at - all.begin());
    const std::vector<NamedCurve> curves = curves_of(panel);
    std::size_t n = 0;
    for (const NamedCurve& c : curves) n = std::max(n, c.values->size());
    // A chart with no curve drawn gives nothing.
    if (n < 2) return out;
    DataColumn time{"Time (s)", {}};
    for (std::size_t i = 0; i < n; ++i) time.values.push_back(static_cast<double>(i) * dt_);
    out.push_back(std::move(time));
    for (const NamedCurve& c : curves)
        out.push_back({std::string(c.name) + " " + kPanels[panel].quantity, *c.values});
    return out;
}

bool MeasuresWindow::read_options(compute::ProcessingOptions& o) {
    auto refuse = [this](const std::string& why) {
        Message.set_caption(why);
        return false;
    };
    const int fit = BaselineFit.list_index();
    o.baseline = fit == 1 ? compute::BaselineFit::acceleration
                 : fit == 2 ? compute::BaselineFit::displacement
                            : compute::BaselineFit::none;
    if (o.baseline != compute::BaselineFit::none && !text::strict_whole(BaselineOrder.text(), o.baseline_order))
        return refuse("Baseline order: type a whole number from 0 to 6");
    const int kind = FilterKind.list_index();
    o.filter = kind == 1   ? compute::FilterKind::low_pass
               : kind == 2 ? compute::FilterKind::high_pass
               : kind == 3 ? compute::FilterKind::band_pass
                           : compute::FilterKind::none;
    if (o.filter == compute::FilterKind::none) return true;
    if (o.filter != compute::FilterKind::low_pass && !text::strict_number(LowCorner.text(), o.low_corner))
        return refuse("Low corner: type a frequency in Hz");
    if (o.filter != compute::FilterKind::high_pass && !text::strict_number(HighCorner.text(), o.high_corner))
        return refuse("High corner: type a frequency in Hz");
    if (!text::strict_whole(FilterOrder.text(), o.filter_order)) return refuse("Filter order: type a whole number from 1 to 8");
    if (!text::strict_number(Pads.text(), o.pad_seconds)) return refuse("Pads: type a number of seconds");
    o.zero_phase = ZeroPhase.checked();
    return true;
}

std::string process_pair(const std::array<std::vector<double>, 2>& in, double dt, const compute::ProcessingOptions& options,
                         std::array<std::vector<double>, 2>& out) {
    for (std::size_t c = 0; c < 2; ++c) {
        compute::ProcessingOutcome p = compute::process_record(in[c], dt, options);
        if (!p.ok()) return std::string(c == 0 ? "X: " : "Y: ") + p.error;
        out[c] = std::move(p.samples);
    }
    return "";
}

bool MeasuresWindow::process(std::array<std::vector<double>, 2>& out, compute::ProcessingOptions& options) {
    if (!read_options(options)) return false;
    if (!options.active()) {
        Message.set_caption("Processing is off: choose a baseline correction or a filter");
        return false;
    }
    const std::string error = process_pair({components_[0].original, components_[1].original}, dt_, options, out);
    if (!error.empty()) Message.set_caption(error);
    return error.empty();
}

void MeasuresWindow::Preview_Click() {
    std::array<std::vector<double>, 2> processed;
    compute::ProcessingOptions options;
    if (!process(processed, options)) return;
    for (std::size_t c = 0; c < 2; ++c) components_[c].shown = std::move(processed[c]);
    Message.set_caption("Preview (not applied): " + compute::processing_summary(options));
    display(true);
}

void MeasuresWindow::Apply_Click() {
    std::array<std::vector<double>, 2> processed;
    compute::ProcessingOptions options;
    if (!process(processed, options)) return;
    write_to_project(processed, options);
    for (std::size_t c = 0; c < 2; ++c) components_[c].shown = std::move(processed[c]);
    applied_ = true;
    Undo.set_enabled(true);
    Message.set_caption("Applied: " + compute::processing_summary(options));
    display(true);
}

void MeasuresWindow::Undo_Click() {
    if (!applied_) return;
    write_to_project({components_[0].original, components_[1].original}, {});
    for (Component& k : components_) k.shown = k.original;
    applied_ = false;
    Undo.set_enabled(false);
    Message.set_caption("Processing undone: the record is as it was read");
    display(false);
}

void MeasuresWindow::write_to_project(const std::array<std::vector<double>, 2>& samples,
                                      const compute::ProcessingOptions& options) {
    ProjectState& s = state();
    s.put_samples(record_, first_, samples);
    s.recordProcessingOptions(record_) = options;
    if (record_changed) record_changed();
}

}  // namespace tv::windows
