#include "windows/capacity/sa_window.h"

#include "compute/capacity/demand_spectrum.h"
#include "text/format.h"
#include "text/number_text.h"
#include "windows/capacity/capacity_axes.h"
#include "windows/files/work_files.h"

namespace tv::windows {

using text::val;

namespace {

ChartOptions sa_chart(Form11& f) {
    ChartOptions o;
    o.x_title = "T (s)";
    o.y_title = "Sa (g)";
    o.range = compute::chart::RangeRule::Largest;
    o.colour = 255;
    o.time_labels = compute::chart::TimeLabels::EverySecond;
    o.time_step = [&f] { return val(f.demand.xstep.text()); };
    o.value_steps = compute::chart::ValueSteps::PeakRule;
    o.value_peak = [&f] { return f.state().peakAccel; };
    o.readout.label = "Label8";
    o.readout.caption = "";
    o.readout.x_text = "T(Period): ";
    o.readout.y_text = ", B.A: ";
    o.readout.x_step = [&f] { return text::to_double(f.demand.xstep.text()); };
    o.replot = [&f] { f.plot_spectrum(); };
    o.value_at = [&f](long i) { return f.state().designSa(i); };
    o.scrolled = [&f] { draw_legible_value_strip(f.chart, f.state().peakAccel); };
    return o;
}

}  // namespace

Form11::Form11(forms::App& app) : Window(app, "Form11", "Calculate SA", 10500, 6500), chart(*this, sa_chart(*this)) {
    demand.Check1.Click = [this] { Check1_Click(); };
    demand.Command4.Click = [this] { Command4_Click(); };
    demand.Command6.Click = [this] { Command6_Click(); };
    demand.Command7.Click = [this] { Command7_Click(); };
}

void Form11::Form_Load() {
    demand.fromFile = false;
    saAtPeriod = 0;
    requestedPeriod = 0;
    Ts = 0;
    demand.Command4.set_enabled(false);
    demand.Command7.set_enabled(false);
    demand.Check1.set_value(0);
}

void Form11::plot_spectrum() {
    chart.plot(state().designSa, val(demand.xstep.text()), true);
    draw_legible_value_strip(chart, state().peakAccel);
}

void Form11::Check1_Click() {
    demand.Check1_Click();
    // The code spectrum's own boxes mean nothing for a file.
    const bool ticked = demand.Check1.value() != 0;
    demand.xscale.set_enabled(!ticked);
    demand.tstart.set_enabled(!ticked);
    demand.tend.set_enabled(!ticked);
}

void Form11::Command4_Click() {
    auto chosen = demand.choose_file();
    // Cancel leaves by the error path, the preset name by the check: nothing is read.
    if (!chosen || *chosen == "*.txt") return;
    demand.read_file(*chosen);
    // The target displacement window wants a Ts with a file spectrum too.
    Ts = demand.constants().Ts;
    plot_spectrum();
    platform().set_busy(false);
}

void Form11::Command6_Click() {
    Ts = demand.show_spectrum(compute::design_spectrum).Ts;
    plot_spectrum();
}

void Form11::calculare_sa() {
    const ProjectState& s = state();
    if (val(demand.xstep.text()) == 0.0) {
        platform().message_box("Error Time Step", forms::MsgButtons::Ok, "", forms::MsgIcon::None);
        return;
    }
    compute::calculare_sa_period(saAtPeriod, s.designAux, s.designSa, requestedPeriod, val(demand.tend.text()),
                                 val(demand.xstep.text()));
}

void Form11::Command7_Click() {
    platform().set_busy(true);
    platform().do_events();
    calculare_sa();
    if (writeBack) writeBack(text::format(saAtPeriod, "0.0000"), text::format(Ts, "0.0000"));
    program().unload(*this);
    platform().set_busy(false);
}

}  // namespace tv::windows
