#include "windows/capacity/diagram_window.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

#include "compute/chart/chart_scaling.h"
#include "text/runtime_error.h"
#include "windows/capacity/capacity_axes.h"
#include "windows/capacity/capacity_window.h"
#include "windows/capacity/grid_table.h"
#include "windows/printing/page_composer.h"
#include "windows/printing/printing.h"

namespace tv::windows {

namespace cc = compute::chart;

namespace {

ChartOptions diagram_chart(Form10& f) {
    ChartOptions o;
    o.range = cc::RangeRule::LargestWide;
    o.colour = -1;
    o.time_labels = cc::TimeLabels::EverySecond;
    // The abscissa is a displacement itself: one unit a tick.
    o.time_step = [] { return 1.0; };
    o.value_steps = cc::ValueSteps::PeakRule;
    o.value_peak = [&f] { return f.state().peakAccel; };
    o.readout.label = "Label1";
    o.readout.caption = "";
    o.readout.x_text = "X: ";
    o.readout.y_text = ", Y: ";
    o.readout.x_step = [] { return 1.0; };
    o.replot = [&f] { f.plot_or_say_so(); };
    // The read-out shows the pointer itself.
    o.mouse_move = [&f](double x, double y) { f.chart.mouse_move(x, y, [y](long) { return y; }); };
    o.scrolled = [&f] { f.legible_axes(); };
    return o;
}

// Drawing coordinates are single precision; beyond it is an overflow.
double single(double v) {
    if (std::isfinite(v) && std::fabs(v) > FLT_MAX) text::raise(text::kOverflow);
    return static_cast<double>(static_cast<float>(v));
}

}  // namespace

Form10::Form10(forms::App& app) : Window(app, "Form10", "Diagram", 11000, 6500), chart(*this, diagram_chart(*this)) {
    pic1.set_visible(false);
    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    cmdSavePdf.Click = [this] { cmdSavePdf_Click(); };
}

void Form10::Form_Activate() {
    if (activated) return;
    activated = true;
    fill_printer_list(xprinter, platform());
    fillarray();
    plot_or_say_so();
}

void Form10::plot_or_say_so() {
    try {
        plot(true);
    } catch (const text::RuntimeError&) {
        platform().message_box("Error Reading File", forms::MsgButtons::Ok, "", forms::MsgIcon::None);
    }
}

void Form10::fillarray() { diagram = windows::fillarray(to_table(program().form<Form9>().Fg3)); }

void Form10::plot(bool rescale) {
    forms::PictureBox& P = chart.picNemodar;
    const double r = cc::element_range(diagram.maxOrdinate, cc::RangeRule::LargestWide);
    const double right = cc::element_range(diagram.maxAbscissa, cc::RangeRule::LargestWide);
    P.cls();
    if (rescale) {
        P.set_width(cc::plot_width(chart.Slider1.value()));
        P.set_left(0);
        P.set_top(chart.picNemodar1.height() - P.height());
        chart.HScroll1.set_value(0);
        chart.HScroll1.set_max(cc::scroll_max(chart.Slider1.value()));
        P.scale(0, r, right, -r);
    }
    for (std::size_t k = 0; k < diagram.series.size(); ++k) {
        const DiagramSeries& s = diagram.series[k];
        if (!s.x.allocated() || !s.y.allocated()) continue;
        const long u = std::min(s.x.ubound(), s.y.ubound());
        const int colour = kDiagramColors[k];
        for (long i = 2; i <= u; ++i)
            P.line(single(s.x(i - 1)), single(s.y(i - 1)), single(s.x(i)), single(s.y(i)), colour);
    }
    P.line(0, 0, single(2 * P.width()), 0);
    P.refresh();
    drawn_ = true;
    drawn_revision_ = P.revision();
    chart.drawAxes();
    legible_axes();
}

std::string Form10::abscissa_title() const {
    const auto* capacity = program().if_loaded<Form9>();
    const std::string unit = capacity != nullptr ? capacity->vahed.caption() : std::string();
    return unit.empty() ? "Sd" : "Sd (" + unit + ")";
}

std::vector<DataColumn> Form10::drawn_data() const {
    std::vector<DataColumn> out;
    if (!drawn_ || chart.picNemodar.revision() != drawn_revision_) return out;
    for (std::size_t k = 0; k < diagram.series.size(); ++k) {
        const DiagramSeries& s = diagram.series[k];
        if (!s.x.allocated() || !s.y.allocated()) continue;
        const long u = std::min(s.x.ubound(), s.y.ubound());
        // A series of one point draws nothing.
        if (u < 2) continue;
        DataColumn x{std::string(kDiagramNames[k]) + " " + abscissa_title(), {}};
        DataColumn y{std::string(kDiagramNames[k]) + " Sa (g)", {}};
        for (long i = 1; i <= u; ++i) {
            x.values.push_back(s.x(i));
            y.values.push_back(s.y(i));
        }
        out.push_back(std::move(x));
        out.push_back(std::move(y));
    }
    return out;
}

void Form10::legible_axes() {
    draw_diagram_abscissa(chart);
    draw_legible_value_strip(chart, state().peakAccel);
}

void Form10::Command1_Click() { program().unload(*this); }

forms::Page Form10::report_page() {
    // Plot and strips side by side, as the chart stands in its container.
    pic1.cls();
    auto copy = [this](const forms::PictureBox& from, double dx, double dy) {
        for (const forms::DrawOp& op : from.ops()) {
            switch (op.kind) {
                case forms::DrawOp::Kind::Line:
                    pic1.line(op.x1 + dx, op.y1 + dy, op.x2 + dx, op.y2 + dy, op.color);
                    break;
                case forms::DrawOp::Kind::Point: pic1.pset(op.x1 + dx, op.y1 + dy, op.color); break;
                case forms::DrawOp::Kind::Text:
                    pic1.set_current_x(op.x1 + dx);
                    pic1.set_current_y(op.y1 + dy);
                    pic1.print(op.text);
                    break;
            }
        }
    };
    copy(chart.picNemodar, chart.picNemodar1.left() + chart.picNemodar.left(),
         chart.picNemodar1.top() + chart.picNemodar.top());
    copy(chart.PicySxale, chart.PicySxale.left(), chart.PicySxale.top());
    copy(chart.PicxSxale, chart.PicxSxale.left(), chart.PicxSxale.top());

    const Form9& f9 = program().form<Form9>();
    PageContent page;
    page.title = caption();
    page.picture = &pic1;
    page.font = "Tahoma";
    page.heading = "Diagram & Result";
    page.lines = {f9.Label16.caption() + " " + f9.Re1.text() + " " + f9.vahed.caption(),
                  f9.Label17.caption() + " " + f9.Re2.text(), f9.Label18.caption() + " " + f9.Re3.text(),
                  f9.Label19.caption() + " " + f9.Re4.text()};
    return compose_page(page, platform());
}

void Form10::Command2_Click() { print_page(platform(), report_page(), xprinter.text()); }

void Form10::cmdSavePdf_Click() { save_page_as_pdf(platform(), report_page()); }

}  // namespace tv::windows
