#include "windows/chart/chart.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <exception>

#include "text/format.h"
#include "text/number_text.h"

namespace tv::windows {

namespace cc = compute::chart;

namespace {

constexpr int kRed = 0x0000FF;
// Room a value label needs on its strip, in text heights.
constexpr double kValueLabelRoom = 1.5;

// Drawing coordinates are single precision; a value beyond it is an overflow.
double single(double v) {
    if (std::isfinite(v) && std::fabs(v) > FLT_MAX) text::raise(text::kOverflow);
    return static_cast<double>(static_cast<float>(v));
}

float single_f(double v) { return static_cast<float>(single(v)); }

// The read-out's "On Error Resume Next": a failing statement is skipped, the next one runs.
template <class F>
void resume_next(F&& statement) {
    try {
        statement();
    } catch (const std::exception&) {
    }
}

}  // namespace

Chart::Chart(forms::Form& form, ChartOptions options)
    : picContainer(form.picture("picContainer", kValueStripWidth + cc::kWidthUnit, kPlotHeight + kTimeStripHeight,
                                options.container)),
      picNemodar1(form.picture("picNemodar1", cc::kWidthUnit, kPlotHeight, &picContainer)),
      picNemodar(form.picture("picNemodar", cc::kWidthUnit, kPlotHeight, &picNemodar1)),
      PicxSxale(form.picture("PicxSxale", cc::kWidthUnit, kTimeStripHeight, &picContainer)),
      PicySxale(form.picture("PicySxale", kValueStripWidth, kPlotHeight, &picContainer)),
      Line2(form.line_shape("Line2", &picNemodar)),
      Line3(form.line_shape("Line3", &picNemodar)),
      Slider1(form.slider("Slider1", 1, options.slider_max, 1, options.container)),
      HScroll1(form.hscroll("HScroll1", options.container)),
      Label6(form.label("Label6", "X Axis Scale : 1X", options.container)),
      options_(std::move(options)) {
    if (!options_.readout.label.empty())
        readout = &form.label(options_.readout.label, options_.readout.caption, options_.container);
    // Strips and viewport side by side; the plot fills the viewport until it is widened.
    picNemodar1.set_left(kValueStripWidth);
    PicySxale.set_left(0);
    PicxSxale.set_left(kValueStripWidth);
    PicxSxale.set_top(kPlotHeight);
    HScroll1.set_max(0);
    HScroll1.set_enabled(false);
    Line2.color = 0;
    Line3.color = 0;
    Slider1.Change = [this] { slider_changed(); };
    HScroll1.Change = [this] { scroll(); };
    HScroll1.Scroll = [this] { scroll(); };
    if (options_.mouse_move)
        picNemodar.MouseMove = [this](int, int, double x, double y) { options_.mouse_move(x, y); };
    else if (options_.value_at)
        picNemodar.MouseMove = [this](int, int, double x, double y) { mouse_move(x, y, options_.value_at); };
}

void Chart::plot(const text::DoubleArray& values, double dt, bool rescale) {
    plot(values, dt, rescale, options_.colour);
}

void Chart::plot(const text::DoubleArray& values, double dt, bool rescale, int colour) {
    dt_ = dt;
    long u = values.ubound();
    double amax = cc::largest_abs(values.raw());
    // Over several curves only the red one fits the chart; the others use its range.
    bool sets_range = !options_.only_red_sets_range || colour == kRed;
    if (sets_range) {
        if (options_.range == cc::RangeRule::PeakFields) {
            auto [mx, my] = options_.peak_fields ? options_.peak_fields() : std::pair<double, double>{0, 0};
            range_ = cc::peak_field_range(mx, my);
        } else {
            range_ = cc::element_range(options_.range_holds ? std::max(amax, options_.range_holds()) : amax,
                                       options_.range);
        }
        picNemodar.cls();
    }
    if (sets_range || picNemodar.revision() != drawn_revision_) drawn_.clear();
    if (rescale) {
        picNemodar.set_width(cc::plot_width(Slider1.value()));
        picNemodar.set_left(0);
        picNemodar.set_top(picNemodar1.height() - picNemodar.height());
        HScroll1.set_value(0);
        HScroll1.set_max(cc::scroll_max(Slider1.value()));
        picNemodar.scale(0, range_, static_cast<double>(u), -range_);
    }
    double k = options_.scale_to_peak ? cc::curve_factor(range_, amax) : 1.0;
    if (empty()) {
        // A curve of no height or no length has nothing to draw: the chart stays blank.
        picNemodar.cls();
        drawAxes();
        return;
    }
    draw_curve(values, u, k, colour);
    remember_curve(values, u, k, colour);
    // The base line only has to pass the right edge of the plot.
    picNemodar.line(0, 0, single(2 * picNemodar.width()), 0);
    picNemodar.refresh();
    drawAxes();
}

void Chart::remember_curve(const text::DoubleArray& values, long upper, double k, int colour) {
    DrawnCurve c{colour, options_.time_step ? options_.time_step() : dt_, {}};
    // Index 1 stands at 0, as the curve is drawn from there.
    c.values.push_back(0);
    for (long i = 2; i <= upper; ++i) c.values.push_back(options_.scale_to_peak ? values(i) * k : values(i));
    drawn_.push_back(std::move(c));
    drawn_revision_ = picNemodar.revision();
}

std::vector<DataColumn> Chart::drawn_data() const {
    std::vector<DataColumn> out;
    if (drawn_.empty() || picNemodar.revision() != drawn_revision_ || empty()) return out;
    std::size_t longest = 0;
    for (const DrawnCurve& c : drawn_) longest = std::max(longest, c.values.size());
    DataColumn x{options_.x_title, {}};
    for (std::size_t i = 1; i <= longest; ++i) x.values.push_back(static_cast<double>(i) * drawn_.front().step);
    out.push_back(std::move(x));
    for (const DrawnCurve& c : drawn_) {
        std::string name = options_.y_title;
        for (const auto& [colour, curve] : options_.curve_names)
            if (colour == c.colour) name = curve + " " + options_.y_title;
        out.push_back({name, c.values});
    }
    return out;
}

void Chart::zoom(int steps, double viewport_x) {
    if (empty() || !Slider1.enabled() || steps == 0) return;
    const double at = (viewport_x - picNemodar.left()) / picNemodar.width();
    const int before = Slider1.value();
    Slider1.set_value(before + steps);
    if (Slider1.value() == before) return;
    const double left = viewport_x - at * picNemodar.width();
    HScroll1.set_value(static_cast<int>(std::lround(-left / 100)));
}

void Chart::pan(double dx) {
    if (empty() || !HScroll1.enabled()) return;
    HScroll1.set_value(HScroll1.value() - static_cast<int>(std::lround(dx / 100)));
}

void Chart::reset_view() {
    if (!Slider1.enabled()) return;
    if (Slider1.value() != 1)
        Slider1.set_value(1);
    else
        HScroll1.set_value(0);
}

void Chart::draw_curve(const text::DoubleArray& values, long upper, double k, int colour) {
    const ChartMarks& m = options_.marks;
    double repeat = m.repeat ? m.repeat() : 1.0;
    bool marks_on = m.repeat && m.on && m.on();
    double w = marks_on && m.width ? m.width() : 0.0;
    // The curve starts at (1, 0), whatever element 1 holds; element 0 is never drawn.
    double prev = 0;
    for (long i = 2; i <= upper; ++i) {
        double v = values(i);
        double y = options_.scale_to_peak ? v * k : v;
        for (double p = 1; p <= repeat; p += 1) {
            picNemodar.line(single(static_cast<double>(i - 1)), single(prev), single(static_cast<double>(i)),
                            single(y), colour);
            if (marks_on && m.peak && m.peak(static_cast<long>(p)) == v)
                picNemodar.line(single(i - w), single(v), single(static_cast<double>(i)), single(v), m.colour);
        }
        prev = y;
    }
}

namespace {

std::int32_t label_left(const cc::TimeTick& t) { return t.x; }
std::int32_t label_left(const cc::AxisMark& m) { return m.label_x; }

template <class Mark>
void draw_marks(forms::PictureBox& strip, const std::vector<Mark>& marks) {
    for (const auto& m : marks) {
        strip.set_draw_width(1);
        if (m.labelled) {
            strip.set_current_x(label_left(m));
            strip.set_current_y(100);
            strip.print(m.label);
            strip.set_draw_width(2);
        }
        strip.line(m.x, 0, m.x, 100);
    }
    strip.refresh();
}

}  // namespace

void draw_time_strip(forms::PictureBox& strip, const std::vector<cc::TimeTick>& ticks) { draw_marks(strip, ticks); }
void draw_time_strip(forms::PictureBox& strip, const std::vector<cc::AxisMark>& marks) { draw_marks(strip, marks); }

bool Chart::empty() const { return picNemodar.scale_width() == 0 || picNemodar.scale_height() == 0; }

void Chart::drawAxes() {
    // Time strip, in twips.
    PicxSxale.cls();
    if (empty()) {
        PicySxale.cls();
        return;
    }
    double dt = options_.time_step ? options_.time_step() : dt_;
    auto ticks = cc::time_ticks(picNemodar.scale_width(), picNemodar.width(), dt, HScroll1.value(),
                                options_.time_labels,
                                [this](const std::string& s) { return PicxSxale.text_width(s); });
    draw_time_strip(PicxSxale, ticks);

    // Value strip: doubled and upside down against the plot, so a value v stands at -2v.
    double s = picNemodar.scale_height();
    PicySxale.cls();
    PicySxale.scale(0, s, 100, -s);
    double step = 1;
    if (options_.value_steps == cc::ValueSteps::PeakRule) {
        double peak = options_.value_peak ? options_.value_peak() : 0.0;
        double factor = options_.value_scale ? options_.value_scale() : 1.0;
        step = cc::value_label_step(peak, factor);
    }
    // A strip too short for its labels takes a multiple of the step, so that no label covers the next.
    step = cc::legible_value_step(step, kValueLabelRoom * PicySxale.text_height());
    for (const auto& t : cc::value_ticks(s, step, options_.value_steps)) {
        PicySxale.set_current_y(t.text_y);
        PicySxale.set_current_x(0);
        PicySxale.print(t.label);
        PicySxale.set_draw_width(1);
        PicySxale.line(80, t.tick_y, 100, t.tick_y);
    }
    PicySxale.refresh();
}

void Chart::slider_changed() {
    Label6.set_caption("X Axis Scale :" + text::to_text(Slider1.value()) + "X");
    HScroll1.set_enabled(Slider1.value() != 1);
    if (options_.replot) options_.replot();
}

void Chart::scroll() {
    picNemodar.set_left(cc::scroll_left(HScroll1.value()));
    drawAxes();
    if (options_.scrolled) options_.scrolled();
}

void Chart::mouse_move(double x, double y, const std::function<double(long index)>& value_at) {
    (void)y;
    resume_next([&] {
        Line2.set(single_f(x), single_f(-picNemodar1.height()), single_f(x), single_f(picNemodar1.height()));
    });
    resume_next([&] {
        Line3.set_x1(0);
        Line3.set_x2(single_f(2 * picNemodar.width()));
    });
    long index = 0;
    bool have_index = false;
    resume_next([&] {
        index = text::index_of(x);
        have_index = true;
        value_ = value_at(index);
    });
    resume_next([&] {
        Line3.set_y1(single_f(value_));
        Line3.set_y2(single_f(value_));
    });
    if (readout == nullptr) return;
    resume_next([&] {
        if (options_.readout.x_from_index && !have_index) text::raise(text::kOverflow);
        double where = options_.readout.x_from_index ? static_cast<double>(index) : x;
        double step = options_.readout.x_step ? options_.readout.x_step() : 1.0;
        readout->set_caption(options_.readout.x_text + text::format(where * step, "0.00") + options_.readout.y_text +
                             text::format(value_, "0.00") + "  ");
    });
}

}  // namespace tv::windows
