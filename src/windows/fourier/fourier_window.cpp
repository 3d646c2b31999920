#include "windows/fourier/fourier_window.h"

#include <cmath>
#include <optional>

#include "compute/fourier/fourier_sum.h"
#include "text/checked.h"
#include "text/number_text.h"
#include "text/rounding.h"
#include "windows/files/work_files.h"
#include "windows/project/record_input_window.h"

namespace tv::windows {

using text::to_text;
using text::val;

namespace {

ChartOptions fourier_chart(Form12& f) {
    ChartOptions o;
    o.x_title = "ω (rad/s)";
    o.y_title = "Amp (g·s)";
    o.range = compute::chart::RangeRule::Largest;
    o.colour = 255;
    o.time_step = [&f] { return f.deltaOmega; };
    o.value_steps = compute::chart::ValueSteps::Fourier;
    o.readout.label = "";  // this chart has no read-out
    o.marks.repeat = [&f] { return val(f.Text8.text()); };
    o.marks.on = [&f] { return f.Check1.checked(); };
    o.marks.peak = [&f](long p) { return val(f.Grid3.text(static_cast<int>(p), 2)); };
    o.marks.width = [&f] { return text::round_to(text::div(0.5, val(f.Text2.text())), 1); };
    o.replot = [&f] { f.chart.plot(f.state().accelX2, f.deltaOmega, true); };
    return o;
}

// The largest refused omega count whose arrays are still made (8 MiB each).
constexpr std::int32_t kRefusedArraysMade = 1 << 20;

void set_headings(forms::Grid& g, std::initializer_list<const char*> names, std::initializer_list<int> widths) {
    int c = 0;
    for (const char* n : names) g.set_text(0, c++, n);
    c = 0;
    for (int w : widths) g.set_col_width(c++, w);
}

}  // namespace

// While a loop runs the pointer is the hourglass and the window's buttons do nothing.
class Form12::Busy {
public:
    explicit Busy(Form12& f) : f_(f) {
        f_.looping_ = true;
        f_.platform().set_busy(true);
        if (f_.looping_changed) f_.looping_changed(true);
    }
    ~Busy() {
        f_.looping_ = false;
        f_.platform().set_busy(false);
        if (f_.looping_changed) f_.looping_changed(false);
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    Form12& f_;
};

Form12::Form12(forms::App& app) : Window(app, "Form12", "Fourier Transform", 12000, 8200), chart(*this, fourier_chart(*this)) {
    Picbar.set_visible(false);
    Text7.set_visible(false);
    Command1.Click = [this] { Command1_Click(); };
    Command3.Click = [this] { Command3_Click(); };
    Command4.Click = [this] { Command4_Click(); };
    Command5.Click = [this] { Command5_Click(); };
    Command7.Click = [this] { Command7_Click(); };
    Command8.Click = [this] { Command8_Click(); };
    Command9.Click = [this] { Command9_Click(); };
    Check1.Click = [this] { Check1_Click(); };
}

void Form12::Form_Load() {
    const Form1& f1 = program().form<Form1>();
    Text5.set_text(to_text(text::chk(val(f1.xeline.text()) * val(f1.xstep.text()))));
    for (forms::Control* c : std::initializer_list<forms::Control*>{&Command4, &Command3, &Text5, &Text6, &Text8, &Check1,
                                                                    &Command5, &Command9})
        c->set_enabled(false);
}

void Form12::Form_Unload(int& cancel) {
    if (looping_) cancel = 1;
}

void Form12::Check1_Click() {
    Text8.set_enabled(Check1.checked());
    Command5.set_enabled(Check1.checked());
}

void Form12::plot_amplitude() { chart.plot(state().accelX2, deltaOmega, true); }

void Form12::Command1_Click() {
    if (looping_) return;
    ProjectState& s = state();
    Check1.set_value(0);
    omegaLim = text::to_double(Text1.text());
    deltaOmega = text::to_double(Text2.text());
    n = compute::omega_steps(omegaLim, deltaOmega);
    set_headings(Grid1, {"Real", "Imag", "Amp", "Omega"}, {800, 800, 800, 500});
    // A refused count may lie far beyond memory: its arrays are made anew only while small.
    const bool accepted = compute::omega_steps_accepted(n);
    if (accepted || n <= kRefusedArraysMade) {
        s.accelX1.redim(n);
        s.accelY1.redim(n);
        s.accelX2.redim(n);
    }
    if (!accepted) {
        platform().message_box("Steps are too many...! Change Omega Lim or Delta Omega", forms::MsgButtons::Ok, "Error",
                               forms::MsgIcon::Information);
        return;
    }
    Grid1.set_rows(std::max(n, 0) + 1);
    for (std::int32_t i = 1; i <= n; ++i)
        for (int c = 0; c < 4; ++c) Grid1.set_text(i, c, "0");
    Form1& f1 = program().form<Form1>();
    const double dt = val(f1.xstep.text());
    Picbar.set_visible(true);
    pbar.set_max(static_cast<float>(n));
    Busy busy(*this);

    // The source is record 1's X table as scaled, whatever is drawn; once processing is applied
    // to record 1, its processed samples (the Fourier sums overwrite the record arrays, not these).
    compute::FourierSamples samples;
    sourceNotes = processing_notes(s, 1, 1);
    if (n >= 1) {
        const bool processed = !sourceNotes.empty();
        samples = compute::fourier_samples(val(f1.Xfline.text()), val(f1.xeline.text()), [&f1, &s, processed](double j) {
            return processed ? s.baseAccelX1(text::index_of(j)) : val(f1.Grid1.text(static_cast<int>(text::index_of(j)), 1));
        });
    }
    compute::FourierSpectrum spectrum;
    compute::FourierPeak peak{peakOmega, peakAmp};
    // The cells hold the sums until the row is done, then their rounded texts.
    auto show_sums = [&](std::int32_t i) {
        const auto u = static_cast<std::size_t>(i);
        pbar.set_value(static_cast<float>(i));
        Grid1.set_text(i, 0, to_text(spectrum.real[u]));
        s.accelX1(i) = val(Grid1.text(i, 0));
        Grid1.set_text(i, 1, to_text(spectrum.imag[u]));
        s.accelY1(i) = val(Grid1.text(i, 1));
    };
    auto show_row = [&](std::int32_t i) {
        const compute::FourierRowTexts row = compute::fourier_row_texts(spectrum, i);
        Grid1.set_text(i, 2, row.amp);
        Grid1.set_text(i, 3, row.omega);
        s.accelX2(i) = val(Grid1.text(i, 2));
        peakOmega = peak.omega;
        peakAmp = peak.amp;
        Grid1.set_text(i, 0, row.real);
        Grid1.set_text(i, 1, row.imag);
        platform().do_events();
    };
    compute::fourier_transform(samples, dt, deltaOmega, n, spectrum, peak, show_row, show_sums);
    Picbar.set_visible(false);
    Text3.set_text(to_text(text::round_to(peakOmega, 2)));
    Text4.set_text(to_text(text::round_to(peakAmp, 4)));
    plot_amplitude();
    for (forms::Control* c : std::initializer_list<forms::Control*>{&Command3, &Text5, &Text6, &Check1}) c->set_enabled(true);
    Label11.set_caption(to_text(compute::period_of_omega(val(Text3.text()))));
    Command9.set_enabled(true);
}

void Form12::Command3_Click() {
    if (looping_) return;
    ProjectState& s = state();
    omegaLim = text::to_double(Text1.text());
    deltaOmega = text::to_double(Text2.text());
    n = compute::omega_steps(omegaLim, deltaOmega);
    const double m = text::div(val(Text5.text()), val(Text6.text()));
    const double dtOut = val(Text6.text());
    Grid2.set_text(0, 0, "Time");
    Grid2.set_text(0, 1, "Accel");
    const long upper = text::index_of(m);
    s.accelX1.redim(upper);
    s.accelY1.redim(upper);
    // The rows run while k <= m: a fraction of a step gives no row, and the table holds no more.
    const std::int32_t rows = m >= 1 ? static_cast<std::int32_t>(std::floor(m)) : 0;
    Grid2.set_rows(rows + 1);
    for (long k = 1; k <= m; ++k) {
        Grid2.set_text(static_cast<int>(k), 0, "0");
        Grid2.set_text(static_cast<int>(k), 1, "0");
    }
    Picbar.set_visible(true);
    pbar.set_max(static_cast<float>(m));
    Busy busy(*this);
    const bool picked = Check1.checked();
    const double spacing = val(Text9.text());
    const double count = picked ? val(Text8.text()) : n;

    // The terms come from the tables as the first row reads them; a row beyond a table fails
    // there, after the terms before it were summed into row 1.
    std::vector<double> omega, real, imag;
    std::optional<text::RuntimeError> unreadable;
    if (rows >= 1) {
        forms::Grid& source = picked ? Grid3 : Grid1;
        try {
            for (double i = 1; i <= count; i += 1) {
                if (i >= source.rows()) text::raise(text::kSubscript);
                const int r = static_cast<int>(i);
                if (picked) omega.push_back(val(Grid3.text(r, 3)));
                real.push_back(val(source.text(r, 0)));
                imag.push_back(val(source.text(r, 1)));
            }
        } catch (const text::RuntimeError& e) {
            unreadable = e;
        }
    }
    compute::InverseTerms terms = picked ? compute::picked_inverse_terms(omega, real, imag, deltaOmega, spacing)
                                         : compute::all_inverse_terms(real, imag, deltaOmega);
    // A spacing wider than the omega step is the weight of the picks from then on.
    if (!real.empty()) deltaOmega = terms.weight;
    if (unreadable) {
        double a = 0;
        for (std::size_t i = 0; i < terms.real.size(); ++i) {
            a = compute::inverse_term(a, terms.real[i], terms.imag[i], terms.omega[i], dtOut, terms.weight);
            Grid2.set_text(1, 1, to_text(a));
            s.accelX1(1) = val(Grid2.text(1, 1));
        }
        throw *unreadable;
    }

    compute::History history;
    std::int32_t reported = 0;
    try {
        compute::inverse_transform(terms, dtOut, rows, history, [&](std::int32_t k) {
            reported = k;
            const auto at = static_cast<std::size_t>(k);
            Grid2.set_text(k, 1, to_text(history.accel[at]));
            s.accelX1(k) = val(Grid2.text(k, 1));
            const compute::HistoryRowTexts texts = compute::history_row_texts(history, k);
            // The time is written with each term: a sum of no terms leaves the row's "0".
            if (!terms.real.empty()) {
                Grid2.set_text(k, 0, texts.time);
                s.accelY1(k) = history.time[at];
            }
            Grid2.set_text(k, 1, texts.accel);
            pbar.set_value(static_cast<float>(k));
            platform().do_events();
        });
    } catch (const text::RuntimeError&) {
        // The row that overflowed keeps its sum as far as it got.
        const std::int32_t k = reported + 1;
        if (k <= rows && static_cast<std::size_t>(k) < history.accel.size() &&
            std::isfinite(history.accel[static_cast<std::size_t>(k)])) {
            Grid2.set_text(k, 1, to_text(history.accel[static_cast<std::size_t>(k)]));
            s.accelX1(k) = val(Grid2.text(k, 1));
        }
        throw;
    }
    Picbar.set_visible(false);
    inverted = 1.0;
    Command4.set_enabled(true);
}

void Form12::Command5_Click() {
    if (looping_) return;
    Busy busy(*this);
    set_headings(Grid3, {"Real", "Imag", "Amp", "Omega", "T(sec)"}, {800, 800, 800, 600, 500});
    const double rows = val(Text8.text());
    const long last_row = rows >= 1 ? static_cast<long>(std::floor(rows)) : 0;
    Grid3.set_rows(static_cast<int>(last_row) + 1);
    for (long r = 1; r <= last_row; ++r)
        for (int c = 0; c < 5; ++c) Grid3.set_text(static_cast<int>(r), c, "");
    omegaLim = text::to_double(Text1.text());
    deltaOmega = text::to_double(Text2.text());
    n = compute::omega_steps(omegaLim, deltaOmega);
    const double spacing = val(Text9.text());
    if (last_row >= 1) {
        std::vector<double> amp;
        for (std::int32_t i = 1; i <= n; ++i) amp.push_back(val(Grid1.text(i, 2)));
        const std::vector<compute::OmegaPick> picks =
            compute::find_omegas(amp, deltaOmega, spacing, static_cast<std::int32_t>(last_row));
        for (const compute::OmegaPick& pick : picks) {
            const int row = static_cast<int>(&pick - picks.data()) + 1;
            const bool found = pick.row != 0;
            Grid3.set_text(row, 0, found ? Grid1.text(pick.row, 0) : "");
            Grid3.set_text(row, 1, found ? Grid1.text(pick.row, 1) : "");
            Grid3.set_text(row, 2, to_text(pick.amp));
            Grid3.set_text(row, 3, found ? to_text(pick.omega) : "");
            // No pick leaves the omega empty, and the period divides by it.
            Grid3.set_text(row, 4, to_text(compute::pick_period(pick)));
        }
    }
    plot_amplitude();
}

void Form12::export_lines(const std::string& caption, std::string_view heading, forms::Grid& g, int first_col,
                          int second_col, text::DoubleArray& first, text::DoubleArray& second) {
    ProjectState& s = state();
    std::string name = save_txt_dialog(platform(), caption);
    if (name == "*.txt") return;
    s.fileName = name;
    std::vector<std::string> lines{std::string(heading)};
    for (int k = 1; k < g.rows(); ++k) {
        first(k) = val(g.text(k, first_col));
        second(k) = val(g.text(k, second_col));
        Text7.set_text(compute::export_line(first(k), second(k)));
        lines.push_back(Text7.text());
    }
    write_export(s, s.fileName, lines, sourceNotes);
    platform().message_box("Done", forms::MsgButtons::Ok, "Information", forms::MsgIcon::Information);
}

void Form12::Command4_Click() {
    if (looping_) return;
    export_lines("Export rebuilt history", compute::kHistoryHeading, Grid2, 0, 1, state().accelX1, state().accelY1);
}

void Form12::Command9_Click() {
    if (looping_) return;
    ProjectState& s = state();
    // The count of the last sum, not of the step an Accel may have widened since.
    s.accelX2.redim(n);
    s.accelY2.redim(n);
    export_lines("Export Fourier amplitudes", compute::kSpectrumHeading, Grid1, 3, 2, s.accelX2, s.accelY2);
}

void Form12::Command8_Click() {
    if (looping_) return;
    program().form<Form1>().xnext.set_enabled(true);
    program().unload(*this);
}

void Form12::Command7_Click() {
    if (looping_) return;
    program().form<Form13>().show();
}

Form13::Form13(forms::App& app) : Window(app, "Form13", "Omega Calculator", 4200, 2400) {
    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    Command3.Click = [this] { program().unload(*this); };
}

void Form13::Form_Load() { Command2.set_enabled(false); }

void Form13::Command1_Click() {
    const double T = val(Text1.text());
    if (T == 0) return;
    Text2.set_text(to_text(compute::omega_of_period(T)));
    Command2.set_enabled(true);
}

void Form13::Command2_Click() {
    program().form<Form12>().Text1.set_text(to_text(compute::transfer_omega(val(Text2.text()))));
    program().unload(*this);
}

}  // namespace tv::windows
