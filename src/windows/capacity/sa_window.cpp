#include "windows/capacity/sa_window.h"

#include "compute/capacity/demand_spectrum.h"
#include "text/format.h"
#include "text/number_text.h"
#include "text/runtime_error.h"
#include "windows/capacity/capacity_axes.h"
#include "windows/files/work_files.h"

namespace tv::windows {

using text::val;

namespace {

ChartOptions sa_chart(Form11& f) {
    ChartOptions o;
    o.range = compute::chart::RangeRule::Largest;
    o.colour = 255;
    o.time_labels = compute::chart::TimeLabels::EverySecond;
    o.time_step = [&f] { return val(f.xstep.text()); };
    o.value_steps = compute::chart::ValueSteps::PeakRule;
    o.value_peak = [&f] { return f.state().peakAccel; };
    o.readout.label = "Label8";
    o.readout.caption = "";
    o.readout.x_text = "T(Period): ";
    o.readout.y_text = ", B.A: ";
    o.readout.x_step = [&f] { return text::to_double(f.xstep.text()); };
    o.replot = [&f] { f.plot_spectrum(); };
    return o;
}

}  // namespace

Form11::Form11(forms::App& app) : Window(app, "Form11", "Calculate SA", 10500, 6500), chart(*this, sa_chart(*this)) {
    Option1.set_value(true);
    Option5.set_value(true);
    Check1.Click = [this] { Check1_Click(); };
    Command4.Click = [this] { Command4_Click(); };
    Command6.Click = [this] { Command6_Click(); };
    Command7.Click = [this] { Command7_Click(); };
    chart.Slider1.Change = [this] { chart.slider_changed(); };
    chart.HScroll1.Change = [this] { scroll(); };
    chart.HScroll1.Scroll = [this] { scroll(); };
    chart.picNemodar.MouseMove = [this](int, int, double x, double y) {
        chart.mouse_move(x, y, [this](long i) { return state().designSa(i); });
    };
}

void Form11::Form_Load() {
    fromFile = false;
    saAtPeriod = 0;
    requestedPeriod = 0;
    Ts = 0;
    Command4.set_enabled(false);
    Command7.set_enabled(false);
    Check1.set_value(0);
}

compute::Soil Form11::soil() const {
    if (Option2.value()) return compute::Soil::II;
    if (Option3.value()) return compute::Soil::III;
    if (Option4.value()) return compute::Soil::IV;
    return compute::Soil::I;
}

compute::HazardGroup Form11::risk_group() const {
    return Option6.value() ? compute::HazardGroup::HighVeryHigh : compute::HazardGroup::LowModerate;
}

void Form11::plot_spectrum() {
    chart.plot(state().designSa, val(xstep.text()), true);
    draw_legible_value_strip(chart, state().peakAccel);
}

void Form11::scroll() {
    chart.scroll();
    draw_legible_value_strip(chart, state().peakAccel);
}

void Form11::Check1_Click() {
    const bool ticked = Check1.value() != 0;
    if (!ticked) {
        Command6.set_enabled(true);
        Command4.set_enabled(false);
        fsoil.set_enabled(true);
        Frisk.set_enabled(true);
        fromFile = false;
    } else {
        Command4.set_enabled(true);
        fsoil.set_enabled(false);
        Frisk.set_enabled(false);
        Command6.set_enabled(false);
    }
    // The code spectrum's own boxes mean nothing for a file.
    xscale.set_enabled(!ticked);
    tstart.set_enabled(!ticked);
    tend.set_enabled(!ticked);
}

void Form11::Command4_Click() {
    ProjectState& s = state();
    forms::FileDialogRequest request;
    request.filter = "*.txt";
    request.file_name = "*.txt";
    auto chosen = platform().file_dialog(request);
    // Cancel leaves by the error path, the preset name by the check: nothing is read.
    if (!chosen || *chosen == "*.txt") return;
    s.fileName = *chosen;
    platform().set_busy(true);
    compute::read_period_sa_file(resolve_in_workdir(s, s.fileName), s.designAux, s.designSa);
    Command7.set_enabled(true);
    fromFile = true;
    // The target displacement window wants a Ts with a file spectrum too.
    Ts = compute::spectrum_constants(soil(), risk_group()).Ts;
    plot_spectrum();
    platform().set_busy(false);
}

void Form11::Command6_Click() {
    ProjectState& s = state();
    s.peakAccel = val(xscale.text());
    const compute::HazardGroup group = risk_group();
    const compute::SpectrumConstants k = compute::spectrum_constants(soil(), group);
    if (!fromFile) {
        const double start = val(tstart.text()), end = val(tend.text()), step = val(xstep.text());
        const double A = s.peakAccel;
        s.specCount = compute::spectrum_count(end, step);
        // Both arrays run from 1.
        if (s.specCount < 1) text::raise(text::kSubscript);
        s.designSa.redim(s.specCount);
        s.designAux.redim(s.specCount);
        double i = 1.0;
        auto pass = [&](double T) {
            s.designSa.at(i) = compute::design_spectrum(T, A, k, group);
            s.designAux.at(i) = text::chk(i * step);
            i = i + 1.0;
        };
        // A counted loop over doubles: the end and the step are fixed when it starts.
        if (step > 0.0) {
            for (double T = start; T <= end; T = T + step) pass(T);
        } else {
            for (double T = start; T >= end; T = T + step) pass(T);
        }
    }
    Ts = k.Ts;
    Command7.set_enabled(true);
    plot_spectrum();
}

void Form11::calculare_sa() {
    const ProjectState& s = state();
    if (val(xstep.text()) == 0.0) {
        platform().message_box("Error Time Step", forms::MsgButtons::Ok, "", forms::MsgIcon::None);
        return;
    }
    compute::calculare_sa_period(saAtPeriod, s.designAux, s.designSa, requestedPeriod, val(tend.text()),
                                 val(xstep.text()));
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
