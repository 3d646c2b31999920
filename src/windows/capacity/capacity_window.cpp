#include "windows/capacity/capacity_window.h"

#include "compute/capacity/demand_spectrum.h"
#include "compute/chart/chart_axes.h"
#include "text/number_text.h"
#include "text/runtime_error.h"
#include "windows/capacity/capacity_axes.h"
#include "windows/capacity/capacity_results.h"
#include "windows/capacity/curve_capacity.h"
#include "windows/capacity/curve_capacity_window.h"
#include "windows/capacity/demand_table.h"
#include "windows/capacity/diagram_window.h"
#include "windows/capacity/grid_table.h"
#include "windows/capacity/step_table.h"
#include "windows/files/curve_questions.h"
#include "windows/files/work_files.h"

namespace tv::windows {

using text::to_text;
using text::val;

namespace {

ChartOptions demand_chart(Form9& f) {
    ChartOptions o;
    o.x_title = "T (s)";
    o.y_title = "Sa (g)";
    o.range = compute::chart::RangeRule::Largest;
    o.colour = 255;
    o.time_labels = compute::chart::TimeLabels::Spaced;
    o.time_step = [&f] { return val(f.demand.xstep.text()); };
    o.value_steps = compute::chart::ValueSteps::PeakRule;
    o.value_peak = [&f] { return f.state().peakAccel; };
    o.readout.label = "Label14";
    o.readout.caption = "";
    o.readout.x_text = "T(Period): ";
    o.readout.y_text = ", B.A: ";
    o.readout.x_step = [&f] { return text::to_double(f.demand.xstep.text()); };
    o.container = &f.Frame2;
    o.replot = [&f] { f.plot_spectrum(f.fileChart); };
    o.value_at = [&f](long i) { return f.state().designSa(i); };
    o.scrolled = [&f] { f.redraw_strips(); };
    return o;
}

// The time strip of the spectrum file's routine: a label at every tick, not every 800 twips.
void every_second_time_strip(Chart& chart, double dt) {
    forms::PictureBox& strip = chart.PicxSxale;
    strip.cls();
    auto ticks = compute::chart::time_ticks(chart.picNemodar.scale_width(), chart.picNemodar.width(), dt,
                                            chart.HScroll1.value(), compute::chart::TimeLabels::EverySecond,
                                            [&strip](const std::string& s) { return strip.text_width(s); });
    draw_time_strip(strip, ticks);
}

}  // namespace

Form9::Form9(forms::App& app)
    : Window(app, "Form9", "Capacity Spec Method", 12500, 9000), chart(*this, demand_chart(*this)) {
    Op1.set_value(true);
    for (const char* unit : {"mm", "cm", "m"}) Combo1.add_item(unit);
    // A popup menu: shown over Fg3, never in a menu bar.
    menu_file.set_visible(false);

    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    cmdFromCurve.Click = [this] { program().form<frmCurveCapacity>().show(); };
    Combo1.Click = [this] { Combo1_Click(); };
    demand.Check1.Click = [this] { demand.Check1_Click(); };
    demand.Command4.Click = [this] { Command4_Click(); };
    demand.Command6.Click = [this] { Command6_Click(); };
    demand.Command7.Click = [this] { Command7_Click(); };
    Command8.Click = [this] { Command8_Click(); };
    Command9.Click = [this] { Command9_Click(); };
    Command3.Click = [this] { Command3_Click(); };
    Command5.Click = [this] { Command5_Click(); };
    copy.Click = [this] { copy_Click(); };
    Fg3.MouseUp = [this](int button, int shift, float x, float y) { Fg3_MouseUp(button, shift, x, y); };
}

void Form9::Form_Load() {
    Frame1.set_visible(true);
    Frame2.set_visible(false);
    Frame3.set_visible(false);
    frame2_internal.set_visible(false);
    demand.Command7.set_enabled(false);
    Command3.set_enabled(false);
    Command5.set_enabled(false);
    pageIndex = 0;
    with_table(Fg, [](TextTable& t) { write_capacity_headings(t); });
    Combo1.set_list_index(0);
}

void Form9::Form_Unload(int&) {
    // The diagram reads this window's boxes; it does not outlive them.
    program().unload<Form10>();
    program().unload<frmCurveCapacity>();
}

int Form9::kind() const {
    if (Op1.value()) return 1;
    if (Op2.value()) return 2;
    if (Op3.value()) return 3;
    return 0;
}

void Form9::show_error_description(const std::string& description, const std::string& title) {
    platform().message_box(description, forms::MsgButtons::Ok, title, forms::MsgIcon::None);
}

// --- Page 0: the capacity curve ---------------------------------------------------------------

void Form9::Command1_Click() {
    platform().set_busy(true);
    Fg.set_redraw(false);
    forms::FileDialogRequest request;
    request.filter = "Pushover File | *.txt";
    request.title = "Capacity file";
    auto chosen = platform().file_dialog(request);
    if (!chosen) {
        // Cancel is reported as an error: only the pointer comes back.
        platform().set_busy(false);
        return;
    }
    Text1.set_text(*chosen);
    Command2_Click();
    Fg.set_redraw(true);
    platform().set_busy(false);
}

void Form9::Command2_Click() {
    const std::string path = resolve_in_workdir(state(), Text1.text());
    if (compute::capacity_file_has_own_layout(path)) {
        ReadCapacityTable(compute::read_capacity_file(path));
        return;
    }
    compute::CurveImportOptions options;
    options.system = capacity_unit_system(Combo1.list_index());
    const auto curve = import_curve_asking(platform(), path, compute::CurveKind::spectral, options);
    if (!curve) return;  // the table keeps what it had
    const compute::CapacityTable table =
        capacity_table_of(*curve, {0.0, 0.0, pf_phi_for(*curve, std::nullopt)}, val(T1.text()));
    if (!table.ok()) {
        platform().message_box(path + ": " + table.description, forms::MsgButtons::Ok, "Error", forms::MsgIcon::Critical);
        return;
    }
    ReadCapacityTable(table);
}

void Form9::ReadCapacityTable(const compute::CapacityTable& table) {
    capacityPoints.assign(1, compute::CapacityPoint{});
    for (std::size_t r = 0; r < table.rows.size(); ++r) {
        if (r > 0) capacityPoints.emplace_back();
        capacityPoints[r] = table.rows[r].point;
    }
    // The rows before a failure stay in the table.
    with_table(Fg, [&table](TextTable& t) { write_capacity_rows(t, table); });
    if (!table.ok()) {
        Command3.set_enabled(false);
        Command5.set_enabled(false);
        pageIndex = 0;
        Fg.set_redraw(true);
        platform().message_box_detailed("Error Reading Pushover file!", compute::failure_detail(table, resolve_in_workdir(state(), Text1.text())),
                                        forms::MsgButtons::Ok, "Error", forms::MsgIcon::Critical);
        return;
    }
    Command3.set_enabled(true);
}

void Form9::Combo1_Click() {
    switch (Combo1.list_index()) {
        case 0: T1.set_text("9810"); break;
        case 1: T1.set_text("981"); break;
        case 2: T1.set_text(to_text(9.81)); break;
        default: break;
    }
    vahed.set_caption(Combo1.text());
}

// --- Page 1: the demand spectrum --------------------------------------------------------------

void Form9::plot_spectrum(bool fromFileRoutine) {
    fileChart = fromFileRoutine;
    chart.plot(state().designSa, val(demand.xstep.text()), true);
    redraw_strips();
}

void Form9::redraw_strips() {
    if (fileChart) every_second_time_strip(chart, val(demand.xstep.text()));
    draw_legible_value_strip(chart, state().peakAccel);
}

void Form9::Command4_Click() {
    try {
        auto chosen = demand.choose_file();
        // The dialog reports Cancel as an error: the handler shows its description.
        if (!chosen) text::raise(text::kCancel);
        // The preset name left as it was: nothing is read, nothing said.
        if (*chosen == "*.txt") return;
        demand.read_file(*chosen);
        plot_spectrum(true);
        platform().set_busy(false);
    } catch (const text::RuntimeError& e) {
        platform().set_busy(false);
        show_error_description(e.description(), "");
    }
}

void Form9::Command6_Click() {
    try {
        frame2_internal.set_visible(false);
        demand.Command6.set_enabled(false);
        shown = 1;
        // The wizard's short form of the code spectrum: no S0, no long-period factor.
        demand.show_spectrum([](double T, double A, const compute::SpectrumConstants& k, compute::HazardGroup) {
            return compute::short_spectrum(T, A, {k.S, k.T0, k.Ts});
        });
        demand.Command6.set_enabled(true);
        plot_spectrum(false);
    } catch (const text::RuntimeError& e) {
        show_error_description(e.description(), "");
    }
}

void Form9::Command7_Click() {
    platform().set_busy(true);
    platform().do_events();
    frame2_internal.set_visible(true);
    Command3.set_enabled(true);
    FG2.set_redraw(false);
    calculare_sa();
    FG2.set_redraw(true);
    platform().set_busy(false);
}

void Form9::calculare_sa() {
    const ProjectState& s = state();
    try {
        const TextTable fg = to_table(Fg);
        const SaTableOutcome outcome = with_table(FG2, [&](TextTable& t) {
            return windows::calculare_sa(t, saAtStep, fg, s.designAux, s.designSa, val(demand.tend.text()),
                                         val(demand.xstep.text()));
        });
        if (outcome == SaTableOutcome::zero_step)
            platform().message_box("Error Time Step", forms::MsgButtons::Ok, "", forms::MsgIcon::None);
    } catch (const text::RuntimeError& e) {
        show_error_description(e.description(), "Error");
    }
}

bool Form9::has_capacity_steps() {
    // The steps are looked up from row 1 on: a file that gave none would fail there unexplained.
    if (Fg.rows() > 1) return true;
    platform().message_box(kNoCapacitySteps, forms::MsgButtons::Ok, "Error", forms::MsgIcon::Critical);
    return false;
}

void Form9::Command8_Click() {
    if (!has_capacity_steps()) return;
    const TextTable fg = to_table(Fg);
    with_table(FG2, [&](TextTable& t) { input_teff_from_capacity(t, fg, T3.text()); });
}

// --- Page 2: the sweep ------------------------------------------------------------------------

void Form9::Command9_Click() { calculate(); }

void Form9::calculate() {
    if (!has_capacity_steps()) return;
    SweepBoxes settings;
    settings.T1 = T1.text();
    settings.T2 = T2.text();
    settings.T3 = T3.text();
    settings.T4 = T4.text();
    settings.kind = kind();
    SweepResults results;
    const TextTable fg = to_table(Fg);
    const TextTable fg2 = to_table(FG2);
    auto write_results = [&] {
        slopeK0 = results.slopeK0;
        Re1.set_text(results.Re1);
        Re2.set_text(results.Re2);
        Re3.set_text(results.Re3);
        Re4.set_text(results.Re4);
    };
    try {
        with_table(Fg3, [&](TextTable& t) { windows::calculate(fg, fg2, settings, t, results); });
    } catch (...) {
        write_results();
        throw;
    }
    write_results();
    Command3.set_enabled(true);
}

// --- The wizard -------------------------------------------------------------------------------

void Form9::Command3_Click() {
    pageIndex = static_cast<std::int16_t>(pageIndex + 1);
    if (pageIndex == 1) {
        demand.fromFile = false;
        shown = 0;
        demand.Command7.set_enabled(false);
        demand.Check1.set_value(0);
        Command3.set_enabled(false);
        demand.xscale.set_text("1");
        Command5.set_enabled(true);
        Frame1.set_visible(false);
        Frame2.set_visible(true);
        frame2_internal.set_visible(false);
    } else if (pageIndex == 2) {
        Frame2.set_visible(false);
        Frame3.set_visible(true);
        Command3.set_enabled(false);
    } else if (pageIndex == 3) {
        Command3.set_enabled(false);
        program().unload<Form10>();
        program().form<Form10>().show(true);
        pageIndex = 2;
    }
}

void Form9::Command5_Click() {
    const std::int16_t p = pageIndex;
    pageIndex = static_cast<std::int16_t>(p - 1);
    if (p == 1) {
        Frame1.set_visible(true);
        Frame2.set_visible(false);
        Command5.set_enabled(false);
        Command3.set_enabled(true);
    }
    if (pageIndex == 1) {
        Frame2.set_visible(true);
        Frame3.set_visible(false);
    }
}

void Form9::copy_Click() {
    platform().set_clipboard_text("");
    platform().set_clipboard_text(clipboard_text(to_table(Fg3), Fg3.selected_rows()));
}

void Form9::Fg3_MouseUp(int button, int, float, float) {
    if (button == 2 && PopupMenu) PopupMenu(menu_file);
}

}  // namespace tv::windows
