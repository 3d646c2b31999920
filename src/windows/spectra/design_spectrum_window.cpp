#include "windows/spectra/design_spectrum_window.h"

#include "text/number_text.h"
#include "windows/files/work_files.h"
#include "windows/spectra/comparison_window.h"
#include "windows/spectra/peak_boxes.h"
#include "windows/spectra/response_spectrum_window.h"

namespace tv::windows {

using text::to_text;
using text::val;

namespace {

ChartOptions design_chart(Form2& f) {
    ChartOptions o;
    o.x_title = "T (s)";
    o.y_title = "Sa (g)";
    o.range = compute::chart::RangeRule::Largest;
    o.colour = 255;
    o.time_step = [&f] { return val(f.xstep.text()); };
    o.value_steps = compute::chart::ValueSteps::PeakRule;
    o.value_peak = [&f] { return f.state().peakAccel; };
    o.readout.label = "Label7";
    o.readout.caption = "";
    o.readout.x_text = "T(Period): ";
    o.readout.y_text = ", B.A: ";
    o.readout.x_step = [&f] { return text::to_double(f.xstep.text()); };
    o.replot = [&f] { f.chart.plot(f.state().designSa, val(f.xstep.text()), true); };
    o.value_at = [&f](long i) { return f.state().designSa(i); };
    return o;
}

}  // namespace

Form2::Form2(forms::App& app) : Window(app, "Form2", "Standard", 12000, 7500), chart(*this, design_chart(*this)) {
    Option1.set_value(true);
    Option5.set_value(true);
    for (forms::TextBox* t : {&Text8, &Text2, &Text3, &Text4, &Text5, &Text6, &Text7}) t->set_visible(false);
    // A hazard option puts its default scale into the box, over what was typed.
    auto hazard_click = [this](compute::Hazard h) {
        return [this, h] { Text1.set_text(to_text(compute::default_scale(h))); };
    };
    Option5.Click = hazard_click(compute::Hazard::Low);
    Option7.Click = hazard_click(compute::Hazard::Moderate);
    Option6.Click = hazard_click(compute::Hazard::High);
    Option8.Click = hazard_click(compute::Hazard::VeryHigh);
    xstep.Change = [this] { Text8.set_text(xstep.text()); };
    Check1.Click = [this] { Check1_Click(); };
    Command1.Click = [this] { Command1_Click(); };
    Command3.Click = [this] { Command3_Click(); };
    xnext.Click = [this] { xnext_Click(); };
    Command2.Click = [this] { Command2_Click(); };
}

void Form2::Form_Load() {
    shown = 0;
    fromFile = false;
    Command3.set_enabled(false);
    xnext.set_enabled(false);
    Check1.set_value(0);
}

void Form2::Form_Unload(int&) {
    // Both later windows go, each by itself: a Form4 that refused its question is asked again.
    program().unload<Form3>();
    program().unload<Form4>();
}

compute::Soil Form2::soil() const {
    if (Option2.value()) return compute::Soil::II;
    if (Option3.value()) return compute::Soil::III;
    if (Option4.value()) return compute::Soil::IV;
    return compute::Soil::I;
}

compute::Hazard Form2::hazard() const {
    if (Option7.value()) return compute::Hazard::Moderate;
    if (Option6.value()) return compute::Hazard::High;
    if (Option8.value()) return compute::Hazard::VeryHigh;
    return compute::Hazard::Low;
}

void Form2::plot_design() { chart.plot(state().designSa, val(xstep.text()), true); }

void Form2::Command1_Click() {
    ProjectState& s = state();
    Command1.set_enabled(false);
    shown = 1;
    s.peakAccel = val(Text1.text());
    if (!fromFile) {
        const compute::HazardGroup group = compute::hazard_group(hazard());
        const compute::SpectrumConstants k = compute::spectrum_constants(soil(), group);
        T0 = k.T0;
        Ts = k.Ts;
        S = k.S;
        compute::show_design_spectrum(s.designSa, s.specCount, val(tstart.text()), val(tend.text()),
                                      val(xstep.text()), val(Text1.text()), k, group);
    }
    xnext.set_enabled(true);
    plot_design();
    Command1.set_enabled(true);
}

void Form2::Command3_Click() {
    ProjectState& s = state();
    std::string name = open_txt_dialog(platform(), "Design spectrum file");
    if (name != "*.txt") {
        s.fileName = name;
        platform().set_busy(true);
        compute::read_spectrum_file(resolve_in_workdir(s, s.fileName), val(tend.text()), val(xstep.text()),
                                    s.designSa, s.specCount);
        Command1.set_enabled(true);
        fromFile = true;
    }
    platform().set_busy(false);
    plot_design();
}

void Form2::xnext_Click() {
    ProjectState& s = state();
    if (shown == 0) Command1_Click();
    s.tStart = val(tstart.text());
    s.tEnd = val(tend.text());
    s.periodStep = val(xstep.text());
    hide();
    Form3& f3 = program().form<Form3>();
    copy_peaks(peak_boxes(*this), peak_boxes(f3));
    showChildWindow(f3, false);
}

void Form2::Command2_Click() { program().unload(*this); }

void Form2::Check1_Click() {
    if (Check1.value() == 0) {
        Command1.set_enabled(true);
        Text1.set_enabled(true);
        Frame2.set_enabled(true);
        Frame3.set_enabled(true);
        fromFile = false;
        Command3.set_enabled(false);
    } else {
        Command3.set_enabled(true);
        Text1.set_enabled(false);
        Frame2.set_enabled(false);
        Frame3.set_enabled(false);
        Command1.set_enabled(false);
    }
    xnext.set_enabled(false);
}

}  // namespace tv::windows
