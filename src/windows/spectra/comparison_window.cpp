#include "windows/spectra/comparison_window.h"

#include <algorithm>
#include <cstdio>

#include "compute/measures/ground_motion_measures.h"
#include "compute/spectra/comparison.h"
#include "text/format.h"
#include "text/number_text.h"
#include "windows/files/work_files.h"
#include "windows/spectra/peak_boxes.h"
#include "windows/spectra/response_spectrum_window.h"

namespace tv::windows {

using text::to_text;
using text::val;

const char* const kBandEndMessage =
    "\u0639\u062f\u062f \u0648\u0627\u0631\u062f \u0634\u062f\u0647 \u0628\u0627\u064a\u062f \u0628\u0631\u0627\u0628\u0631 "
    "\u064a\u0627 \u06a9\u0645\u062a\u0631 \u0627\u0632 \u0632\u0645\u0627\u0646 \u0627\u0646\u062a\u0647\u0627\u064a "
    "\u0637\u064a\u0641 \u0645\u0639\u0631\u0641\u064a \u0634\u062f\u0647 \u0628\u0627\u0634\u062f";

namespace {

const char* const kHeadingSrss =
    "a(x1)               a(y1)             a(x2)              a(y2)             a(x3)             a(y3)            "
    "Sa(x1)           Sa(y1)            Sa(x2)           Sa(y2)           Sa(x3)          Sa(y3)            "
    "Srss(1)          Srss(2)         Srss(3)         Srss(Ave)";
const char* const kHeadingMax =
    "a(x1)               a(y1)             a(x2)              a(y2)             a(x3)             a(y3)            "
    "Sa(x1)           Sa(y1)            Sa(x2)           Sa(y2)           Sa(x3)          Sa(y3)            "
    "Smax(1)          Smax(2)         Smax(3)         Smax(Ave)";

ChartOptions comparison_chart(Form4& f) {
    ChartOptions o;
    o.x_title = "T (s)";
    o.y_title = "Sa (g)";
    o.curve_names = {{255, "Average of the records"}, {50, "Target"}};
    o.range = compute::chart::RangeRule::Largest;
    o.colour = 255;
    o.only_red_sets_range = true;
    o.time_step = [&f] { return f.state().periodStep; };
    o.value_steps = compute::chart::ValueSteps::Tenth;
    o.readout.label = "";  // the window has read-out labels of its own
    o.replot = [&f] {
        f.chart.plot(f.averageSpectrum, f.state().periodStep, true, 255);
        f.chart.plot(f.targetSpectrum, f.state().periodStep, true, 50);
    };
    o.mouse_move = [&f](double x, double y) { f.picNemodar_MouseMove(x, y); };
    return o;
}

}  // namespace

Form4::Form4(forms::App& app) : Window(app, "Form4", "Spec-Comparing", 12000, 7500), chart(*this, comparison_chart(*this)) {
    Picbar.set_visible(false);
    for (forms::TextBox* t : {&Text1, &Text2, &Text3, &Text4, &Text5, &Text6, &Text7}) t->set_visible(false);
    LineRed.color = 0x0000FF;
    LineBlue.color = 0xFF0000;
    Check2.Click = [this] { Check2_Click(); };
    tend.Change = [this] { tend_Change(); };
    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    Command3.Click = [this] { Command3_Click(); };
}

void Form4::Form_Load() { activated = 0; }

void Form4::Form_Activate() {
    if (activated != 0) return;
    activated = 1;
    Command3.set_enabled(false);
    tend.set_text(to_text(state().tEnd));
    show_durations();
}

void Form4::show_durations() {
    ProjectState& s = state();
    std::string text;
    for (std::int32_t k = 1; k <= s.recordCount && k <= 3; ++k) {
        text += (text.empty() ? "" : "\n") + std::string("D5-95 of record ") + std::to_string(k) + ":";
        for (char c : {'X', 'Y'}) {
            const compute::MeasuresOutcome m = compute::ground_motion_measures(s.samples(k, c), s.recordDt(k));
            char buf[48];
            if (m.ok())
                std::snprintf(buf, sizeof buf, " %c %.2f s", c, m.measures.d5_95);
            else
                std::snprintf(buf, sizeof buf, " %c -", c);
            text += buf;
        }
    }
    LabelDurations.set_caption(text);
}

void Form4::Form_Unload(int& cancel) {
    const auto answer = platform().message_box("Do you want to close the form?", forms::MsgButtons::YesNo,
                                               "Notice", forms::MsgIcon::None);
    program().unload<Form3>();
    if (answer == forms::MsgResult::No) cancel = 1;
}

void Form4::Check2_Click() {
    xbeta.set_text(Check2.checked() ? "1.3" : "1.17");
    tend.set_text(to_text(state().tEnd));
    tstart.set_text(to_text(0.01));
    chart.picNemodar.cls();
}

void Form4::tend_Change() {
    if (val(tend.text()) > state().tEnd) {
        platform().message_box(kBandEndMessage, forms::MsgButtons::Ok, "", forms::MsgIcon::None);
        tend.set_text(to_text(state().tEnd));
    }
}

void Form4::Command1_Click() {
    for (auto* b : {&Command1, &Command2, &Command3}) b->set_enabled(false);
    calculate();
    for (auto* b : {&Command1, &Command2, &Command3}) b->set_enabled(true);
}

void Form4::Command2_Click() { program().unload(*this); }

text::DoubleArray& Form4::combined(std::int32_t record) {
    switch (record) {
        case 1: return combined1;
        case 2: return combined2;
        case 3: return combined3;
        default: text::raise(text::kSubscript);
    }
}

void Form4::calculate() {
    ProjectState& s = state();
    xzarib.set_text("1");
    chart.picNemodar.cls();
    const PeakBoxes peaks = peak_boxes(*this);
    std::vector<compute::ComparisonRecord> records;
    for (std::int32_t k = 1; k <= s.recordCount; ++k)
        records.push_back({s.recordFirstLine(k), s.recordLastLine(k), s.baseAccel(k, 'X'), s.baseAccel(k, 'Y'),
                           s.accel(k, 'X'), s.accel(k, 'Y'), s.spectrum(k, 'X'), s.spectrum(k, 'Y'),
                           val(peaks[static_cast<std::size_t>(2 * k - 2)]->text()),
                           val(peaks[static_cast<std::size_t>(2 * k - 1)]->text()), combined(k)});
    compute::ComparisonHooks hooks;
    // The damping is Form3's: reading it loads that window again when it was closed.
    hooks.run_integrator = [this] {
        const double zeta = val(program().form<Form3>().xbeta.text());
        run_response_spectra(*this, {Picbar, pbar}, zeta, [] { return compute::SpectrumMeasure::PseudoAcceleration; },
                             "Err");
    };
    hooks.sa_scale = [this] { return val(xbeta.text()); };
    hooks.band = [this] { return std::pair{val(tstart.text()), val(tend.text())}; };
    hooks.show_factor = [this](double z) { xzarib.set_text(to_text(z)); };
    const auto rule = Check2.checked() ? compute::CombinationRule::LargerComponent : compute::CombinationRule::Srss;
    const double z = compute::comparison_calculate(records, s.designSa, s.specCount, s.periodStep, rule,
                                                   averageSpectrum, targetSpectrum, hooks);
    xzarib.set_text(to_text(z));
    draw_curves(true);
    activated = 1;
    Command3.set_enabled(true);
}

void Form4::draw_curves(bool rescale) {
    chart.plot(averageSpectrum, state().periodStep, rescale, 255);
    chart.plot(targetSpectrum, state().periodStep, rescale, 50);
}

void Form4::picNemodar_MouseMove(double x, double) {
    // Every statement stands under a trap that ignores failures, as the read-out always did.
    auto quietly = [](auto&& statement) {
        try {
            statement();
        } catch (const text::RuntimeError&) {
        }
    };
    long j = 0;
    quietly([&] { j = text::index_of(x); });
    quietly([&] { chart.Line2.set(static_cast<float>(x), static_cast<float>(-chart.picNemodar1.height()),
                                  static_cast<float>(x), static_cast<float>(chart.picNemodar1.height())); });
    quietly([&] { LineBlue.set(0, static_cast<float>(averageSpectrum(j)), static_cast<float>(2 * chart.picNemodar.width()),
                               static_cast<float>(averageSpectrum(j))); });
    quietly([&] { LineRed.set(0, static_cast<float>(targetSpectrum(j)), static_cast<float>(2 * chart.picNemodar.width()),
                              static_cast<float>(targetSpectrum(j))); });
    // A failing read leaves its label as it was ("Y: 0.00", "X: 0.00" before any Calculate).
    quietly([&] {
        LabelBlue.set_caption(std::string(Check2.checked() ? "Smax : " : "SRSS : ") +
                              text::format(averageSpectrum(j), "0.00"));
    });
    quietly([&] { LabelRed.set_caption("Spa(st): " + text::format(targetSpectrum(j), "0.00")); });
    quietly([&] { Label12.set_caption("T(Period) : " + text::format(x * state().periodStep, "0.00")); });
    LineRed.set_visible(Check1.checked());
    LineBlue.set_visible(Check1.checked());
}

void Form4::Command3_Click() {
    ProjectState& s = state();
    if (activated != 1) return;
    std::string name = save_txt_dialog(platform(), "Export scaled records and spectra");
    if (name != "*.txt") {
        s.fileName = name;
        platform().set_busy(true);
        std::vector<std::string> lines{Check2.checked() ? kHeadingMax : kHeadingSrss};
        std::int32_t N = 0;
        for (std::int32_t k = 1; k <= s.recordCount; ++k) N = std::max(N, s.recordLastLine(k));
        text::DoubleArray* columns[16] = {&s.accelX1, &s.accelY1, &s.accelX2, &s.accelY2, &s.accelX3, &s.accelY3,
                                          &s.specX1,  &s.specY1,  &s.specX2,  &s.specY2,  &s.specX3,  &s.specY3,
                                          &combined1, &combined2, &combined3, &averageSpectrum};
        // The lines are made as the arrays will stand after the cut to 0..N; the arrays are cut
        // once the file is written, so a file that cannot be written leaves them whole. A row that
        // fails (a first line below 1 runs the spectra past N) fails after the cut, as it did.
        auto cell = [&](int c, double at) {
            const long i = text::index_of(at);
            const text::DoubleArray& a = *columns[c];
            if (i < 0 || i > N) text::raise(text::kSubscript);
            return static_cast<std::size_t>(i) < a.raw().size() ? a.raw()[static_cast<std::size_t>(i)] : 0.0;
        };
        try {
            for (double i = s.dataFirstLine; i <= N; i += 1) {
                const double j = i - s.dataFirstLine + 1;
                std::string line;
                for (int c = 0; c < 16; ++c) {
                    if (c) line += "     ";
                    line += text::format(cell(c, c < 6 ? i : j), "0.00000000");
                }
                lines.push_back(std::move(line));
            }
        } catch (const text::RuntimeError&) {
            for (auto* a : columns) a->redim_preserve(N);
            if (lines.size() > 1) Text1.set_text(lines.back());
            throw;
        }
        write_export(s, s.fileName, lines, processing_notes(s, 1, s.recordCount));
        for (auto* a : columns) a->redim_preserve(N);
        if (lines.size() > 1) Text1.set_text(lines.back());
        platform().set_busy(false);
    }
    platform().message_box("Done", forms::MsgButtons::Ok, "Information", forms::MsgIcon::Information);
}

}  // namespace tv::windows
