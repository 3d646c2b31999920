// tremorvault-cli spectra: the ground-motion road on the record windows.
#include <algorithm>
#include <cstdio>
#include <ostream>

#include "cli/commands.h"
#include "cli/options.h"
#include "cli/processing_option.h"
#include "cli/record_steps.h"
#include "cli/report_option.h"
#include "cli/session.h"
#include "text/number_text.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/record_input_window.h"
#include "windows/spectra/comparison_window.h"
#include "windows/spectra/design_spectrum_window.h"
#include "windows/spectra/response_spectrum_window.h"
#include "windows/spectra/rotated_run.h"

namespace tv::cli {

namespace {

const char* kSpectraUsage =
    "usage: tremorvault-cli spectra [OPTIONS] X1 Y1 [X2 Y2 [X3 Y3]]\n"
    "       tremorvault-cli spectra [OPTIONS] --components X,Y FILE1 [FILE2 [FILE3]]\n"
    "  --hazard low|moderate|high|very-high   Form2 hazard (default low)\n"
    "  --soil I|II|III|IV       Form2 soil class (default I)\n"
    "  --design-scale TEXT      Form2 scale A (default: the hazard's)\n"
    "  --tstart, --tend, --step TEXT   period grid (default 0.01, 4, 0.01)\n"
    "  --design-file FILE       design ordinates from a file, one per line\n"
    "  --damping TEXT           damping ratio (default 0.05)\n"
    "  --measure psa|sd|psv|sv  spectral measure (default psa)\n"
    "  --measure rotd50|rotd100 orientation-independent PSA of each record's pair, every period printed\n"
    "  --export-spectra FILE    write the twelve-column export (with rotd50|rotd100: and that measure\n"
    "                           of each record, beside the components' PSA)\n"
    "  --compare                go on to the comparison and find the scale factor\n"
    "  --rule srss|max          combination of the components (default srss)\n"
    "  --sa-scale TEXT          factor on the design spectrum (default: the rule's)\n"
    "  --band-start, --band-end TEXT   period band of the search (default 0.01, the grid's end)\n"
    "  --export-comparison FILE write the sixteen-column export\n"
    "processing of each record before its spectra (the exports name it in their first lines):\n";

// RotD50 or RotD100 of each record's pair over the design spectrum window's period grid, with
// the response spectrum window's damping: "RotD50 K: PERIOD VALUE" per period, in g.
int print_rotated(Session& s, bool hundred, const windows::RotatedRun& run) {
    const std::string name = hundred ? "RotD100" : "RotD50";
    s.print("measure", name + " (g)");
    for (std::size_t k = 0; k < run.records.size(); ++k) {
        const std::vector<double>& v = hundred ? run.records[k].rotd100 : run.records[k].rotd50;
        for (std::size_t j = 0; j < run.periods.size(); ++j) {
            char value[32];
            std::snprintf(value, sizeof value, "%.6g", v[j]);
            s.print(name + " " + std::to_string(k + 1), text::to_text(run.periods[j]) + " " + value);
        }
    }
    if (run.ok()) return kDone;
    s.err << "RotD: " << run.error << '\n';
    return kFailed;
}

}  // namespace

int run_spectra(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    OptionSpec known{{"hazard", "soil", "design-scale", "tstart", "tend", "step", "design-file", "damping", "measure",
                     "export-spectra", "rule", "sa-scale", "band-start", "band-end", "export-comparison"},
                    {"compare", kZeroPhaseFlag}};
    known.with_value.insert(kRecordOptions.begin(), kRecordOptions.end());
    known.with_value.insert(kReportOptions.begin(), kReportOptions.end());
    known.with_value.insert(kProcessingOptions.begin(), kProcessingOptions.end());
    const std::string usage = std::string(kSpectraUsage) + kProcessingUsage + kReportUsage + kRecordUsage;
    ParsedOptions o;
    if (auto done = parse_command(args, known, "spectra", usage, o, out, err)) return *done;
    if (auto problem = record_files_problem(o, 3)) return usage_error(err, "spectra", *problem, usage);
    {
        windows::Paper paper;
        std::string why_paper;
        if (!report_paper(o, paper, why_paper)) return usage_error(err, "spectra", why_paper, usage);
    }
    const std::string hazard = o.get("hazard").value_or("low");
    const std::string soil = o.get("soil").value_or("I");
    const std::string measure = o.get("measure").value_or("psa");
    const std::vector<std::string>& hazards = kHazardNames;
    const std::vector<std::string>& soils = kSoilNames;
    const std::vector<std::string> measures{"psa", "sd", "psv", "sv", "rotd50", "rotd100"};
    const bool rotated = measure == "rotd50" || measure == "rotd100";
    const std::string rule = o.get("rule").value_or("srss");
    auto one_of = [&](const std::string& v, const std::vector<std::string>& allowed, const char* name) {
        if (std::find(allowed.begin(), allowed.end(), v) != allowed.end()) return true;
        err << "tremorvault-cli spectra: --" << name << " takes one of";
        for (const auto& a : allowed) err << ' ' << a;
        err << '\n' << usage;
        return false;
    };
    if (!one_of(hazard, hazards, "hazard") || !one_of(soil, soils, "soil") || !one_of(measure, measures, "measure") ||
        !one_of(rule, {"srss", "max"}, "rule"))
        return kUsage;
    if (rotated && o.has("compare")) return usage_error(err, "spectra", "--compare takes psa, sd, psv or sv", usage);
    compute::ProcessingOptions processing;
    if (auto why = processing_from(o, processing)) return usage_error(err, "spectra", *why, usage);
    Session s(out, err);
    try {
        if (auto f = o.get("design-file")) require_readable(s, *f);
        run_record_steps(s, o, o.files, true, true, [&](std::size_t k) {
            if (processing.active()) apply_processing(s, o, processing, k);
        });

        auto& f2 = s.program.form<windows::Form2>();
        forms::OptionButton* hazard_options[] = {&f2.Option5, &f2.Option7, &f2.Option6, &f2.Option8};
        forms::OptionButton* soil_options[] = {&f2.Option1, &f2.Option2, &f2.Option3, &f2.Option4};
        auto index_of = [](const std::vector<std::string>& v, const std::string& x) {
            return static_cast<std::size_t>(std::find(v.begin(), v.end(), x) - v.begin());
        };
        // A click on the hazard sets its scale even when the option is already chosen.
        s.step([&] {
            forms::OptionButton& h = *hazard_options[index_of(hazards, hazard)];
            if (h.value() && h.Click) h.Click();
            h.user_click();
        });
        s.step([&] { soil_options[index_of(soils, soil)]->user_click(); });
        s.step([&] {
            if (auto v = o.get("design-scale")) f2.Text1.set_text(*v);
            if (auto v = o.get("tstart")) f2.tstart.set_text(*v);
            if (auto v = o.get("tend")) f2.tend.set_text(*v);
            if (auto v = o.get("step")) f2.xstep.set_text(*v);
        });
        if (auto file = o.get("design-file")) {
            s.step([&] { f2.Check1.user_click(); });
            s.platform.file_answers.push_back(*file);
            s.step([&] { f2.Command3.press(); });
        }
        s.step([&] { f2.Command1.press(); });
        s.print("design points", text::to_text(s.program.state.specCount));
        s.step([&] { f2.xnext.press(); });

        auto& f3 = s.program.form<windows::Form3>();
        if (rotated) {
            const bool hundred = measure == "rotd100";
            s.step([&] {
                if (auto v = o.get("damping")) f3.xbeta.set_text(*v);
            });
            const auto file = o.get("export-spectra");
            if (!file) return print_rotated(s, hundred, windows::rotated_spectra(s.program.state, text::val(f3.xbeta.text())));
            // The export goes through the window: the components' PSA beside the RotD spectrum.
            s.step([&] { (hundred ? f3.CheckRotD100 : f3.CheckRotD50).user_click(); });
            s.step([&] { f3.Command1.press(); });
            s.platform.file_answers.push_back(*file);
            s.step([&] { f3.Command5.press(); });
            return print_rotated(s, hundred, f3.rotated);
        }
        s.step([&] {
            if (auto v = o.get("damping")) f3.xbeta.set_text(*v);
            if (measure == "sd") f3.Check1.user_click();
            if (measure == "psv") f3.Check2.user_click();
            if (measure == "sv") f3.Check3.user_click();
        });
        s.step([&] { f3.Command1.press(); });
        s.print("measure", f3.Label4.caption());
        if (auto file = o.get("export-spectra")) {
            s.platform.file_answers.push_back(*file);
            s.step([&] { f3.Command5.press(); });
        }
        if (o.has("compare")) {
            s.step([&] { f3.Command4.press(); });
            auto& f4 = s.program.form<windows::Form4>();
            if (rule == "max") s.step([&] { f4.Check2.user_click(); });
            s.step([&] {
                if (auto v = o.get("sa-scale")) f4.xbeta.set_text(*v);
                if (auto v = o.get("band-start")) f4.tstart.set_text(*v);
                if (auto v = o.get("band-end")) f4.tend.set_text(*v);
            });
            s.step([&] { f4.Command1.press(); });
            s.print("scale factor", f4.xzarib.text());
            if (auto file = o.get("export-comparison")) {
                s.platform.file_answers.push_back(*file);
                s.step([&] { f4.Command3.press(); });
            }
        }
        windows::ReportRequest request;
        request.record_files = o.files;
        if (auto scales = o.get("scale")) request.record_scales = split_list(*scales);
        write_report(s, o, request, [&](const windows::ReportRequest& r) { return windows::ground_motion_report(s.program, r); });
    } catch (const Exit& e) {
        return e.status;
    }
    return kDone;
}

}  // namespace tv::cli
