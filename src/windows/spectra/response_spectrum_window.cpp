#include "windows/spectra/response_spectrum_window.h"

#include <algorithm>
#include <tuple>

#include "text/format.h"
#include "text/number_text.h"
#include "windows/files/work_files.h"
#include "windows/spectra/comparison_window.h"
#include "windows/spectra/peak_boxes.h"

namespace tv::windows {

using text::to_text;
using text::val;

const char* const kResponseExportHeading =
    "      a(x1)               a(y1)             a(x2)              a(y2)             a(x3)             a(y3)"
    "            S(x1)           S(y1)            S(x2)           S(y2)           S(x3)          S(y3)       ";

namespace {

ChartOptions response_chart(Form3& f) {
    ChartOptions o;
    o.x_title = "T (s)";
    o.y_title = "Sa (g)";
    o.range = compute::chart::RangeRule::Largest;
    o.colour = 255;
    o.only_red_sets_range = true;
    o.curve_names = {{kRotD50Colour, "RotD50"}, {kRotD100Colour, "RotD100"}};
    // The RotD curves stand above the component's spectrum: the range takes them in.
    o.range_holds = [&f] {
        double top = 0;
        const double n = val(f.Combo1.text());
        if (n != 1 && n != 2 && n != 3) return top;
        const auto k = static_cast<std::size_t>(n);
        for (auto [on, a] : {std::pair{f.rotd50Calculated, &f.rotd50[k]}, std::pair{f.rotd100Calculated, &f.rotd100[k]}})
            if (on && a->allocated()) top = std::max(top, compute::chart::largest_abs(a->raw()));
        return top;
    };
    o.time_step = [&f] { return f.state().periodStep; };
    o.value_steps = compute::chart::ValueSteps::Tenth;
    o.readout.label = "Label8";
    o.readout.x_text = "T(Period): ";
    o.readout.y_text = " , Spa: ";
    o.readout.x_step = [&f] { return f.state().periodStep; };
    o.readout.x_from_index = true;
    o.replot = [&f] { f.plot_selected(); };
    o.value_at = [&f](long i) {
        text::DoubleArray* a = f.selected_spectrum();
        if (!a) text::raise(text::kSubscript);
        return (*a)(i);
    };
    return o;
}

}  // namespace

Form3::Form3(forms::App& app)
    : Window(app, "Form3", "Response spectrum", 12000, 7500), chart(*this, response_chart(*this)) {
    Option1.set_value(true);
    Picbar.set_visible(false);
    for (forms::TextBox* t : {&Text1, &Text2, &Text3, &Text4, &Text5, &Text6, &Text7}) t->set_visible(false);
    // Unticking from a handler fires that box's own click, so the chain plays out.
    // The RotD spectra are pseudo accelerations: they go with the default measure only.
    auto untick_rotd = [this] {
        if (CheckRotD50.checked()) CheckRotD50.set_value(0);
        if (CheckRotD100.checked()) CheckRotD100.set_value(0);
    };
    Check1.Click = [this, untick_rotd] {
        if (Check1.checked()) Check2.set_value(0);
        if (Check3.checked()) Check3.set_value(0);
        if (Check1.checked()) untick_rotd();
    };
    Check2.Click = [this, untick_rotd] {
        if (Check2.checked()) Check1.set_value(0);
        if (Check3.checked()) Check3.set_value(0);
        if (Check2.checked()) untick_rotd();
    };
    Check3.Click = [this, untick_rotd] {
        if (Check3.checked()) Check2.set_value(0);
        if (Check1.checked()) Check1.set_value(0);
        if (Check3.checked()) untick_rotd();
    };
    auto to_pseudo_acceleration = [this] {
        for (forms::CheckBox* c : {&Check1, &Check2, &Check3})
            if (c->checked()) c->set_value(0);
    };
    CheckRotD50.Click = [this, to_pseudo_acceleration] {
        if (CheckRotD50.checked()) to_pseudo_acceleration();
    };
    CheckRotD100.Click = [this, to_pseudo_acceleration] {
        if (CheckRotD100.checked()) to_pseudo_acceleration();
    };
    Combo1.Click = [this] {
        if (calculated != 0) Command3_Click();
    };
    Option1.Click = [this] { Command3_Click(); };
    Option2.Click = [this] { Command3_Click(); };
    Command1.Click = [this] { Command1_Click(); };
    Command3.Click = [this] { Command3_Click(); };
    Command4.Click = [this] { Command4_Click(); };
    Command5.Click = [this] { Command5_Click(); };
    Command2.Click = [this] { Command2_Click(); };
}

void Form3::Form_Load() {
    Combo1.clear();
    for (std::int32_t k = 1; k <= state().recordCount; ++k) Combo1.add_item(to_text(k));
    Frame1.set_enabled(true);
    chart.Slider1.set_enabled(true);
    calculated = 0;
    rotated = {};
    rotd50Calculated = rotd100Calculated = false;
    if (!Combo1.items().empty()) Combo1.set_list_index(0);
    Command4.set_enabled(false);
    Command5.set_enabled(false);
}

void Form3::Form_Unload(int&) { program().unload<Form4>(); }

text::DoubleArray* Form3::selected_spectrum() {
    const double n = val(Combo1.text());
    if (n != 1 && n != 2 && n != 3) return nullptr;
    return &state().spectrum(static_cast<long>(n), Option1.value() ? 'X' : 'Y');
}

void Form3::calculate(double zeta) {
    // The tick boxes stay enabled during the run: each ordinate takes them as they stand.
    auto measure = [this] { return compute::measure_from_ticks(Check1.checked(), Check2.checked(), Check3.checked()); };
    if (run_response_spectra(*this, {Picbar, pbar}, zeta, measure, "Error")) {
        Command4.set_enabled(true);
        Command5.set_enabled(true);
    } else {
        Command4.set_enabled(false);
    }
    calculate_rotated(zeta);
}

void Form3::calculate_rotated(double zeta) {
    rotd50Calculated = CheckRotD50.checked();
    rotd100Calculated = CheckRotD100.checked();
    rotated = {};
    if (!rotd50Calculated && !rotd100Calculated) return;
    rotated = rotated_spectra(state(), zeta);
    if (!rotated.ok()) {
        rotd50Calculated = rotd100Calculated = false;
        platform().message_box("RotD: " + rotated.error, forms::MsgButtons::Ok, "Error", forms::MsgIcon::Critical);
        return;
    }
    // Pass j's ordinate at index j, as the integrator stores the spectra.
    const auto passes = static_cast<long>(rotated.periods.size());
    for (std::size_t k = 1; k <= 3; ++k) {
        for (text::DoubleArray* a : {&rotd50[k], &rotd100[k]}) a->redim(passes);
        if (k > rotated.records.size()) continue;
        const compute::RotDSpectra& r = rotated.records[k - 1];
        for (long j = 1; j <= passes; ++j) {
            rotd50[k](j) = r.rotd50[static_cast<std::size_t>(j - 1)];
            rotd100[k](j) = r.rotd100[static_cast<std::size_t>(j - 1)];
        }
    }
}

void Form3::Command1_Click() {
    for (auto* b : {&Command1, &Command2, &Command3, &Command4}) b->set_enabled(false);
    calculate(val(xbeta.text()));
    calculated = 1;
    Command3_Click();
    for (auto* b : {&Command1, &Command2, &Command3, &Command4}) b->set_enabled(true);
    if (Check1.checked())
        Label4.set_caption("(Displacement)");
    else if (Check2.checked())
        Label4.set_caption("(Pseudo.Velocity)");
    else if (Check3.checked())
        Label4.set_caption("(Velocity)");
    else
        Label4.set_caption("(Pseudo.Acceleration)");
}

void Form3::Command3_Click() {
    for (auto* b : {&Command1, &Command2, &Command3, &Command4}) b->set_enabled(false);
    if (calculated == 0) {
        calculate(val(xbeta.text()));
        calculated = 1;
    }
    plot_selected();
    for (auto* b : {&Command1, &Command2, &Command3, &Command4}) b->set_enabled(true);
}

void Form3::plot_selected() {
    text::DoubleArray* a = selected_spectrum();
    if (!a) return;
    chart.plot(*a, state().periodStep, true);
    const auto k = static_cast<std::size_t>(val(Combo1.text()));
    if (rotd50Calculated) chart.plot(rotd50[k], state().periodStep, false, kRotD50Colour);
    if (rotd100Calculated) chart.plot(rotd100[k], state().periodStep, false, kRotD100Colour);
}

void Form3::Command4_Click() {
    if (calculated == 0) Command1_Click();
    Frame1.set_enabled(false);
    chart.Slider1.set_enabled(false);
    Command5.set_enabled(false);
    hide();
    Form4& f4 = program().form<Form4>();
    copy_peaks(peak_boxes(*this), peak_boxes(f4));
    showChildWindow(f4, false);
}

void Form3::Command5_Click() {
    ProjectState& s = state();
    if (calculated == 1) {
        std::string name = save_txt_dialog(platform(), "Export records and response spectra");
        if (name != "*.txt") {
            s.fileName = name;
            platform().set_busy(true);
            std::int32_t N = 0;
            for (std::int32_t k = 1; k <= s.recordCount; ++k) N = std::max(N, s.recordLastLine(k));
            std::vector<text::DoubleArray*> columns{&s.accelX1, &s.accelY1, &s.accelX2, &s.accelY2, &s.accelX3, &s.accelY3,
                                                    &s.specX1,  &s.specY1,  &s.specX2,  &s.specY2,  &s.specX3,  &s.specY3};
            std::string heading = kResponseExportHeading;
            for (auto [on, measure, arrays] : {std::tuple{rotd50Calculated, "RotD50", &rotd50},
                                            std::tuple{rotd100Calculated, "RotD100", &rotd100}}) {
                if (!on) continue;
                for (std::size_t k = 1; k <= 3; ++k) {
                    columns.push_back(&(*arrays)[k]);
                    heading += "    " + std::string(measure) + "(" + std::to_string(k) + ") (g)";
                }
            }
            // The lines are made as the arrays will stand after the cut to 0..N, and the arrays are
            // cut only once the file is written: a file that cannot be written leaves them whole.
            auto cell = [&](std::size_t c, std::int32_t i) {
                const std::vector<double>& a = columns[c]->raw();
                return static_cast<std::size_t>(i) < a.size() ? a[static_cast<std::size_t>(i)] : 0.0;
            };
            std::vector<std::string> lines{heading};
            lines.reserve(static_cast<std::size_t>(std::max(N, 0)) + 1);
            for (std::int32_t i = 1; i <= N; ++i) {
                std::string line;
                for (std::size_t c = 0; c < columns.size(); ++c) {
                    if (c) line += "    ";
                    line += text::format(cell(c, i), "0.00000000");
                }
                lines.push_back(std::move(line));
            }
            write_export(s, s.fileName, lines, processing_notes(s, 1, s.recordCount));
            for (auto* a : columns) a->redim_preserve(N);
            if (N >= 1) Text1.set_text(lines.back());
            platform().set_busy(false);
        }
        platform().message_box("Done", forms::MsgButtons::Ok, "Information", forms::MsgIcon::Information);
    }
    Frame1.set_enabled(false);
    chart.Slider1.set_enabled(false);
    Command5.set_enabled(false);
}

void Form3::Command2_Click() { program().unload(*this); }

}  // namespace tv::windows
