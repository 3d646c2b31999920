#include "windows/project/record_input_window.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "compute/import/declared_time_step.h"
#include "text/checked.h"
#include "text/number_text.h"
#include "text/rounding.h"
#include "windows/measures/measures_window.h"
#include "windows/project/inputs_window.h"
#include "windows/files/work_files.h"
#include "windows/spectra/design_spectrum_window.h"
#include "windows/spectra/comparison_window.h"
#include "windows/spectra/response_spectrum_window.h"
#include "windows/spectra/peak_boxes.h"

namespace tv::windows {

using text::to_text;
using text::val;

namespace {

ChartOptions record_chart(Form1& f) {
    ChartOptions o;
    o.x_title = "t (s)";
    o.y_title = "a (g)";
    o.range = compute::chart::RangeRule::PeakFields;
    o.peak_fields = [&f] { return std::pair{f.curMaxX, f.curMaxY}; };
    o.scale_to_peak = true;
    o.colour = 255;
    o.time_step = [&f] { return val(f.xstep.text()); };
    o.value_steps = compute::chart::ValueSteps::PeakRule;
    o.value_peak = [&f] { return val(f.xvalue.text()); };
    o.value_scale = [&f] { return f.scaleFactor; };
    o.readout.label = "Label8";
    o.readout.caption = "0 Sec";
    o.readout.x_text = "t: ";
    o.readout.y_text = " , Accel: ";
    o.readout.x_step = [&f] { return text::to_double(f.xstep.text()); };
    // The slider draws the component chosen under Draw again, with a new scale.
    o.replot = [&f] {
        if (f.Option3.value() || f.Option4.value())
            f.chart.plot(f.component_array(f.Option3.value() ? 'X' : 'Y'), val(f.xstep.text()), true);
    };
    // The read-out pairs the units options with the components: g reads X, m/s^2 reads Y.
    o.value_at = [&f](long i) { return f.component_array(f.Option1.value() ? 'X' : f.Option2.value() ? 'Y' : '?')(i); };
    return o;
}

// A line number typed in a box, for finding lines: beyond the usual range it finds none.
std::int32_t typed_line(double value) { return value >= 1 && value < 1e9 ? text::to_int32(value) : 0; }

}  // namespace

Form1::Form1(forms::App& app)
    : Window(app, "Form1", "Input file parameters (", 12000, 9000), chart(*this, record_chart(*this)) {
    Option1.set_value(true);
    Option3.set_value(true);
    for (forms::Grid* g : {&Grid3, &grid4, &grid5, &grid6}) g->set_visible(false);
    Command2.Click = [this] { Command2_Click(); };
    Option3.Click = [this] { Command2_Click(); };
    Option4.Click = [this] { Command2_Click(); };
    xnext.Click = [this] { xnext_Click(); };
    xBack.Click = [this] { xBack_Click(); };
    Command1.Click = [this] { Command1_Click(); };
    cmdMeasures.Click = [this] { cmdMeasures_Click(); };
}

forms::Grid& Form1::gridX(std::int32_t record) {
    switch (record) {
        case 1: return Grid1;
        case 2: return Grid3;
        case 3: return grid5;
        default: text::raise(text::kSubscript);
    }
}

forms::Grid& Form1::gridY(std::int32_t record) {
    switch (record) {
        case 1: return Grid2;
        case 2: return grid4;
        case 3: return grid6;
        default: text::raise(text::kSubscript);
    }
}

void Form1::Form_Load() { diagramShown = 0; }

void Form1::set_caption_for_record() {
    const std::int32_t r = state().currentRecord;
    std::string caption = "Input file parameters (" + to_text(r) + ")";
    if (r >= 1 && r <= 3 && !state().recordProcessing(r).empty())
        caption += " - processed: " + state().recordProcessing(r);
    set_caption(std::move(caption));
}

void Form1::Form_Activate() {
    if (fileLoaded == 1) return;
    fileLoaded = 1;
    xnext.set_enabled(false);
    platform().set_busy(true);
    ProjectState& s = state();
    std::optional<OpenedRecord> file = std::move(opened);
    opened.reset();
    if (!file) file = open_record(platform(), resolve_in_workdir(s, s.fileName), s.fileName, s.componentLetter);
    if (!file) {
        platform().set_busy(false);
        return;
    }
    const compute::FileStatus& status = file->status;
    if (!status.ok()) throw text::FileError(status.error, status.description, s.fileName, status.reason);
    openLines = std::move(file->lines);
    set_caption_for_record();
    setenb(s.currentRecord);
    platform().do_events();
    if (s.currentRecord == 1) xBack.set_enabled(false);
    if (!file->components.empty()) {
        take_components(*file);
    } else {
        const std::string letter = s.componentLetter;
        std::optional<compute::DeclaredTimeStep> declared;
        if (letter == "X" || letter == "Y") {
            const double first = letter == "X" ? s.dataFirstLine : val(Xfline.text());
            declared = compute::find_declared_time_step(openLines, typed_line(first));
        }
        if (letter == "X") s.recordFileFirstLine(s.currentRecord) = 0;
        fillgrid(gridX(s.currentRecord), gridY(s.currentRecord));
        if (declared)
            offer_declared_step(declared->time_step, declared->text + ", line " + std::to_string(declared->line),
                                letter == "X");
    }
    platform().set_busy(false);
}

void Form1::take_components(const OpenedRecord& file) {
    ProjectState& s = state();
    const std::int32_t r = s.currentRecord;
    std::string summary;
    for (const compute::RecordComponent& c : file.components) {
        const bool isX = s.componentLetter == "X";
        if (!isX && s.componentLetter != "Y") break;
        if (isX) {
            s.recordFileFirstLine(r) = c.header_lines + 1;
            Xfline.set_text(to_text(c.header_lines + 1));
            xstep.set_text(to_text(c.time_step));
            openLines = c.lines;
        } else {
            openLines = fit_to_first_line(c, typed_line(val(Xfline.text())));
        }
        openComponent = &c;
        fillgrid(gridX(r), gridY(r));
        openComponent = nullptr;
        if (!summary.empty()) summary += '\n';
        summary += component_summary(file, c, isX ? "X" : "Y");
        if (!isX) offer_declared_step(c.time_step, c.time_step_source, false);
    }
    platform().message_box(summary, forms::MsgButtons::Ok, "Record", forms::MsgIcon::Information);
}

void Form1::offer_declared_step(double step, const std::string& source, bool forX) {
    if (state().stepTyped || step == val(xstep.text())) return;
    const std::string file = std::filesystem::path(state().fileName).filename().string();
    const std::string said = file + " declares a time step of " + to_text(step) + " s (" + source +
                             "); Time Step dt holds " + xstep.text() + ".";
    if (!forX) {
        platform().message_box(said, forms::MsgButtons::Ok, "Time Step", forms::MsgIcon::Exclamation);
        return;
    }
    if (platform().message_box(said + " Take " + to_text(step) + " s?", forms::MsgButtons::YesNo, "Time Step",
                               forms::MsgIcon::Question) == forms::MsgResult::Yes)
        xstep.set_text(to_text(step));
}

void Form1::setenb(std::int32_t r) {
    if (r < 1 || r > 3) return;
    for (std::int32_t k = 1; k <= 3; ++k) {
        gridX(k).set_visible(k == r);
        gridY(k).set_visible(k == r);
    }
}

void Form1::fillgrid(forms::Grid& gridXRef, forms::Grid& gridYRef) {
    ProjectState& s = state();
    const bool isX = s.componentLetter == "X";
    if (!isX && s.componentLetter != "Y") {
        openLines.clear();  // the file is closed unread
        return;
    }
    forms::Grid& g = isX ? gridXRef : gridYRef;
    double& maximum = isX ? curMaxX : curMaxY;
    g.set_redraw(false);
    g.set_text(0, 0, "Acceleration");
    g.set_text(0, 1, "Acceleration with Scale");
    g.set_col_width(0, 2500);
    g.set_col_alignment(0, 1);
    g.set_col_alignment(1, 1);
    std::vector<std::string> lines = std::move(openLines);
    openLines.clear();
    g.set_rows(static_cast<int>(lines.size()) + 1);
    std::int32_t i = 1;
    if (openComponent != nullptr) {
        // A file of a known layout: its header lines are no samples, whatever the answer said.
        maximum = 0;
        for (double v : openComponent->samples) maximum = std::max(maximum, std::fabs(v));
    }
    for (std::string& line : lines) {
        // Header lines before the first data line are never read as numbers, so an odd one can't fail.
        if (openComponent == nullptr) {
            if (i == 1)
                maximum = std::fabs(val(line));
            else if (i > s.dataFirstLine - 1)
                maximum = std::max(maximum, std::fabs(val(line)));
        }
        g.set_text(i, 1, line);
        g.set_text(i, 0, std::move(line));
        ++i;
    }
    g.set_rows(i);
    g.set_redraw(true);
    xeline.set_text(to_text(i - 1));
    if (isX) {
        rawMaxX = curMaxX;
        if (curMaxX != 0) Text1.set_text(to_text(text::round_to(curMaxX, 8)));
        s.componentLetter = "Y";
    } else {
        rawMaxY = curMaxY;
        s.componentLetter = "Z";
        const double larger = curMaxX >= curMaxY ? curMaxX : curMaxY;
        xvalue.set_text(to_text(larger));
        s.peakAccel = larger;
        if (curMaxY != 0) Text2.set_text(to_text(text::round_to(curMaxY, 8)));
    }
}

void Form1::Command2_Click() {
    ProjectState& s = state();
    const std::int32_t r = s.currentRecord;
    Command2.set_enabled(false);
    if (s.componentLetter != "Z") {
        platform().message_box("enter File y", forms::MsgButtons::Ok, "Error", forms::MsgIcon::Critical);
        Command2.set_enabled(true);
        return;
    }
    diagramShown = 1;
    xnext.set_enabled(true);
    if (val(Xfline.text()) != 0 && val(xeline.text()) != 0) {
        scaleFactor = val(xscale.text());
        appliedScale.at(static_cast<std::size_t>(r)) = xscale.text();
        if (savedMaxX.at(static_cast<std::size_t>(r)) != 0) {
            rawMaxX = savedMaxX[static_cast<std::size_t>(r)];
            rawMaxY = savedMaxY[static_cast<std::size_t>(r)];
        } else {
            curMaxX = rawMaxX;
            curMaxY = rawMaxY;
        }
        const double v = val(xvalue.text());
        if (v != curMaxY && v != curMaxX) {
            if (std::fabs(curMaxX) < std::fabs(curMaxY)) {
                curMaxY = v;
                curMaxX = text::chk(text::div(v, rawMaxY) * curMaxX);
                s.peakAccel = text::chk(scaleFactor * curMaxY);
            } else {
                curMaxX = v;
                curMaxY = text::chk(text::div(v, rawMaxX) * curMaxY);
                s.peakAccel = text::chk(scaleFactor * curMaxX);
            }
        }
        firstLine = text::to_int32(val(Xfline.text()));
        lastLine = text::to_int32(val(xeline.text()));
        forms::Grid& gx = gridX(r);
        forms::Grid& gy = gridY(r);
        const int rows = gx.rows() - 1;
        if (firstLine < 1 || lastLine > rows) {
            // Show Diagram stays disabled here; the draw options run it again.
            platform().message_box("Error In First line or Last line", forms::MsgButtons::Ok, "Error",
                                   forms::MsgIcon::Critical);
            return;
        }
        gx.set_redraw(false);
        gy.set_redraw(false);
        // A Y file shorter than its X file has fewer rows: there is nothing to hide beyond them.
        const int rowsY = std::min(rows, gy.rows() - 1);
        for (int i = 1; i <= rows; ++i) gx.set_row_hidden(i, true);
        for (int i = 1; i <= rowsY; ++i) gy.set_row_hidden(i, true);
        text::DoubleArray& ax = s.accel(r, 'X');
        text::DoubleArray& ay = s.accel(r, 'Y');
        text::DoubleArray& bx = s.baseAccel(r, 'X');
        text::DoubleArray& by = s.baseAccel(r, 'Y');
        ax.redim(lastLine);
        ay.redim(lastLine);
        bx.redim(lastLine);
        by.redim(lastLine);
        for (std::int32_t i = firstLine; i <= lastLine; ++i) {
            gx.set_text(i, 1, to_text(text::chk(val(gx.text(i, 0)) * text::div(text::chk(curMaxX * scaleFactor), rawMaxX))));
            gx.set_row_hidden(i, false);
            gy.set_text(i, 1, to_text(text::chk(val(gy.text(i, 0)) * text::div(text::chk(curMaxY * scaleFactor), rawMaxY))));
            gy.set_row_hidden(i, false);
            ax(i) = val(gx.text(i, 1));
            bx(i) = ax(i);
            ay(i) = val(gy.text(i, 1));
            by(i) = ay(i);
        }
        gx.set_redraw(true);
        gy.set_redraw(true);
        // The arrays are read from the tables again: processing applied before is applied anew.
        program().unload<MeasuresWindow>();
        apply_processing_again();
        plot_selected();
    }
    savedMaxX.at(static_cast<std::size_t>(r)) = rawMaxX;
    savedMaxY.at(static_cast<std::size_t>(r)) = rawMaxY;
    const double v = val(xvalue.text());
    if (!(curMaxY > curMaxX)) {
        curMaxX = v;
        curMaxY = text::chk(curMaxY * text::div(v, curMaxX));
        s.peakAccel = text::chk(scaleFactor * curMaxX);
    } else {
        curMaxY = v;
        curMaxX = text::chk(curMaxX * text::div(v, curMaxY));
        s.peakAccel = text::chk(scaleFactor * curMaxY);
    }
    if (curMaxX != 0) Text1.set_text(to_text(text::round_to(curMaxX, 8)));
    if (curMaxY != 0) Text2.set_text(to_text(text::round_to(curMaxY, 8)));
    Command2.set_enabled(true);
}

void Form1::apply_processing_again() {
    ProjectState& s = state();
    const std::int32_t r = s.currentRecord;
    const compute::ProcessingOptions options = s.recordProcessingOptions(r);
    if (!options.active()) return;
    std::array<std::vector<double>, 2> processed;
    const std::string error = process_pair(read_samples(), val(xstep.text()), options, processed);
    if (error.empty()) {
        s.put_samples(r, firstLine, processed);
        return;
    }
    s.recordProcessingOptions(r) = {};
    set_caption_for_record();
    platform().message_box("The processing applied before does not fit the record now, so it is undone. " + error,
                           forms::MsgButtons::Ok, "Processing", forms::MsgIcon::Exclamation);
}

std::array<std::vector<double>, 2> Form1::read_samples() {
    std::array<std::vector<double>, 2> xy;
    forms::Grid* grids[2] = {&gridX(state().currentRecord), &gridY(state().currentRecord)};
    for (std::size_t c = 0; c < 2; ++c)
        for (std::int32_t i = firstLine; i <= lastLine; ++i) xy[c].push_back(val(grids[c]->text(i, 1)));
    return xy;
}

text::DoubleArray& Form1::component_array(char component) {
    return state().accel(state().currentRecord, component);
}

void Form1::plot_selected() {
    if (Option3.value())
        chart.plot(component_array('X'), val(xstep.text()), true);
    else if (Option4.value())
        chart.plot(component_array('Y'), val(xstep.text()), true);
}

void Form1::store_record_settings() {
    ProjectState& s = state();
    const std::int32_t r = s.currentRecord;
    s.recordFirstLine(r) = text::to_int32(val(Xfline.text()));
    s.recordLastLine(r) = text::to_int32(val(xeline.text()));
    s.recordStep(r) = val(xstep.text());
    s.recordDt(r) = val(xstep.text());
    s.recordMaxValue(r) = val(xvalue.text());
}

void Form1::xnext_Click() {
    ProjectState& s = state();
    const std::int32_t r = s.currentRecord;
    savedMaxX.at(static_cast<std::size_t>(r)) = val(Text1.text());
    savedMaxY.at(static_cast<std::size_t>(r)) = val(Text2.text());
    if (s.currentRecord != s.recordCount) {
        xvalue.set_text("");
        Text1.set_text("");
        Text2.set_text("");
    }
    if (diagramShown == 0) Command2_Click();
    if (s.componentLetter == "Z" && s.currentRecord < s.recordCount) {
        xnext.set_enabled(false);
        diagramShown = 0;
        store_record_settings();
        program().unload<MeasuresWindow>();
        s.currentRecord += 1;
        set_caption_for_record();
        setenb(s.currentRecord);
        gridX(s.currentRecord).clear();
        gridY(s.currentRecord).clear();
        chart.picNemodar.cls();
        chart.PicxSxale.cls();
        s.componentLetter = "X";
        xBack.set_enabled(true);
    } else if (s.componentLetter == "Z" && s.currentRecord == s.recordCount) {
        store_record_settings();
        program().unload<Form14>();
        program().unload<Form2>();
        Form2& f2 = program().form<Form2>();
        showChildWindow(f2, false);
        const PeakBoxes peaks = peak_boxes(f2);
        for (std::size_t k = 1; k <= 3; ++k) {
            peaks[2 * k - 2]->set_text(to_text(savedMaxX[k]));
            peaks[2 * k - 1]->set_text(to_text(savedMaxY[k]));
        }
    }
}

void Form1::xBack_Click() {
    ProjectState& s = state();
    if (s.currentRecord <= 1) return;
    program().unload<MeasuresWindow>();
    s.currentRecord -= 1;
    const auto r = static_cast<std::size_t>(s.currentRecord);
    Text1.set_text(to_text(text::round_to(savedMaxX.at(r), 8)));
    Text2.set_text(to_text(text::round_to(savedMaxY.at(r), 8)));
    xvalue.set_text(to_text(text::round_to(savedMaxX[r] > savedMaxY[r] ? savedMaxX[r] : savedMaxY[r], 8)));
    curMaxX = savedMaxX[r];
    curMaxY = savedMaxY[r];
    chart.picNemodar.cls();
    chart.PicxSxale.cls();
    const std::int32_t fileFirst = s.recordFileFirstLine(s.currentRecord);
    Xfline.set_text(fileFirst != 0 ? to_text(fileFirst) : to_text(s.dataFirstLine));
    xeline.set_text(to_text(s.recordLastLine(s.currentRecord)));
    xstep.set_text(to_text(s.recordStep(s.currentRecord)));
    if (s.currentRecord == 1) xBack.set_enabled(false);
    set_caption_for_record();
    setenb(s.currentRecord);
}

void Form1::Command1_Click() { program().form_named("Form12").show(); }

void Form1::cmdMeasures_Click() {
    if (diagramShown == 0) {
        platform().message_box("Show the diagram of the record first", forms::MsgButtons::Ok, "Measures",
                               forms::MsgIcon::Exclamation);
        return;
    }
    MeasuresWindow& m = program().form<MeasuresWindow>();
    m.record_changed = [this] {
        set_caption_for_record();
        plot_selected();
    };
    m.open_record(state().currentRecord, firstLine, val(xstep.text()), read_samples());
    m.show();
}

void Form1::Form_Unload(int&) {
    // Every later window goes, each by itself: a Form4 that refused its question is asked again.
    program().unload<MeasuresWindow>();
    program().unload<Form2>();
    program().unload<Form3>();
    program().unload<Form4>();
    state().reset();
}

}  // namespace tv::windows
