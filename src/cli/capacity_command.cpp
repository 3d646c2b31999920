// tremorvault-cli capacity: the capacity spectrum road on the wizard Form9 and the diagram Form10.
#include <algorithm>
#include <ostream>

#include "cli/commands.h"
#include "cli/curve_options.h"
#include "cli/options.h"
#include "cli/report_option.h"
#include "cli/session.h"
#include "compute/files/file_writer.h"
#include "compute/files/text_file.h"
#include "text/number_text.h"
#include "windows/capacity/capacity_window.h"
#include "windows/capacity/curve_capacity.h"
#include "windows/capacity/diagram_window.h"
#include "windows/printing/printing.h"
#include "windows/project/main_frame_window.h"

namespace tv::cli {

namespace {

const char* kCapacityUsage =
    "usage: tremorvault-cli capacity [OPTIONS] CAPACITY_FILE\n"
    "  The file: title lines, a line holding \"Teff\", then one step per line in nine columns\n"
    "  (Step Teff Betaeff Sd_C Sa_C Sd_d Sa_d ALPHA Pf_fi) after a disposable first character.\n"
    "  --unit mm|cm|m         length unit of the file (default mm)\n"
    "  --g TEXT               gravity in that unit (default: the unit's, 9810 for mm)\n"
    "  --t0 TEXT              period T0 between the acceleration and velocity ranges (0.4358)\n"
    "  --skip TEXT            capacity rows left out at the head (default 0)\n"
    "  --m TEXT               row offset of the initial slope (default 2)\n"
    "  --soil I|II|III|IV     soil of the demand spectrum (default I)\n"
    "  --risk low|high        hazard of the demand spectrum (default low)\n"
    "  --scale TEXT           scale A of the demand spectrum (default 1)\n"
    "  --tstart, --tend, --step TEXT   period grid (default 0.01, 4, 0.02)\n"
    "  --spectrum-file FILE   demand spectrum from a file, period and Sa per line\n"
    "  --teff-from-capacity   \"Input Teff From Capacity\" after Sa is calculated\n"
    "  --type A|B|C           structure type (default A)\n"
    "  --table FILE           the calculation table as Copy to Clipboard gives it\n"
    "  --report-pdf FILE      the printed page of the diagram, to PDF\n"
    "  Any other file is a curve: with --weight a pushover curve (roof displacement, base\n"
    "  force), turned into the nine-column table by Sa = V / (alpha1 W), Sd = droof / (PF1 phi);\n"
    "  else a list of Sd and Sa (g). --unit then defaults to the length of --system.\n"
    "  --weight TEXT          building weight W, in the force unit of --system\n"
    "  --alpha1 TEXT          modal mass coefficient of the first mode\n"
    "  --pf-phi TEXT          participation factor times roof amplitude of the first mode\n"
    "                         (for an Sd-Sa list: the file's participation factor, else 1)\n"
    "  --save-capacity FILE   write the nine-column table built from the curve\n";

std::string capacity_usage() { return std::string(kCapacityUsage) + kReportUsage + kCurveOptionsUsage; }

}  // namespace

int run_capacity(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    OptionSpec known{{"unit", "g", "t0", "skip", "m", "soil", "risk", "scale", "tstart", "tend", "step", "spectrum-file",
                     "type", "table", "report-pdf", "weight", "alpha1", "pf-phi", "save-capacity"},
                    {"teff-from-capacity"}};
    known.with_value.insert(std::begin(kCurveOptionNames), std::end(kCurveOptionNames));
    known.with_value.insert(kReportOptions.begin(), kReportOptions.end());
    const std::string usage = capacity_usage();
    ParsedOptions o;
    if (auto done = parse_command(args, known, "capacity", usage, o, out, err)) return *done;
    if (o.files.size() != 1) return usage_error(err, "capacity", "give one capacity file", usage);
    {
        windows::Paper paper;
        std::string why_paper;
        if (!report_paper(o, paper, why_paper)) return usage_error(err, "capacity", why_paper, usage);
    }

    // The index of an option's value among the allowed ones; the default's when not given.
    bool bad_choice = false;
    auto one_of = [&](const char* name, const std::vector<std::string>& allowed) {
        auto v = o.get(name);
        if (!v) return 0;
        auto it = std::find(allowed.begin(), allowed.end(), *v);
        if (it != allowed.end()) return static_cast<int>(it - allowed.begin());
        err << "tremorvault-cli capacity: --" << name << " takes one of";
        for (const auto& a : allowed) err << ' ' << a;
        err << '\n';
        bad_choice = true;
        return 0;
    };
    const int unit = one_of("unit", {"mm", "cm", "m"});
    const int soil = one_of("soil", {"I", "II", "III", "IV"});
    const int risk = one_of("risk", {"low", "high"});
    const int type = one_of("type", {"A", "B", "C"});
    if (bad_choice) {
        err << usage;
        return kUsage;
    }
    // A curve's numbers go to the length unit the window is set to.
    std::string why;
    const auto import_options =
        curve_options(o, o.get("unit") ? windows::capacity_unit_system(unit) : compute::UnitSystem::kgf_cm, why);
    if (!import_options) return usage_error(err, "capacity", why, usage);
    const bool from_pushover = o.get("weight").has_value();
    if (from_pushover && (!o.get("alpha1") || !o.get("pf-phi")))
        return usage_error(err, "capacity", "--weight needs --alpha1 and --pf-phi", usage);

    const std::string& file = o.files.front();
    Session s(out, err);
    try {
        require_readable(s, file);
        if (auto f = o.get("spectrum-file")) require_readable(s, *f);
        s.step([&] { s.program.form<windows::frmMain>().menu_adrs.choose(); });
        windows::Form9& f9 = s.program.form<windows::Form9>();

        const bool own = !curve_options_given(o) && !from_pushover && compute::capacity_file_has_own_layout(file);
        compute::CapacityTable imported;
        int list_index = unit;
        if (!own) {
            const std::string length = compute::unit_system_length(import_options->system);
            if (!o.get("unit")) list_index = windows::capacity_unit_index(import_options->system);
            const double g = o.get("g") ? text::val(*o.get("g")) : compute::gravity_in(length);
            const compute::CurveImport curve = import_or_exit(
                s, "capacity", file, from_pushover ? compute::CurveKind::pushover : compute::CurveKind::spectral,
                *import_options);
            const double alpha1 = o.get("alpha1") ? text::val(*o.get("alpha1")) : 0.0;
            const double pf_phi = windows::pf_phi_for(
                curve, o.get("pf-phi") ? std::optional<double>(text::val(*o.get("pf-phi"))) : std::nullopt);
            const double weight = from_pushover ? text::val(*o.get("weight")) : 0.0;
            imported = windows::capacity_table_of(curve, {weight, alpha1, pf_phi}, g);
            if (!imported.ok()) {
                err << "tremorvault-cli capacity: " << file << ": " << imported.description << '\n';
                throw Exit{kFailed};
            }
            std::string said = std::to_string(imported.rows.size()) + " rows, Sd in " + length + ", Sa in g, g = " + text::to_text(g);
            if (from_pushover)
                said += ", W = " + *o.get("weight") + " " + compute::unit_system_force(import_options->system);
            s.print("capacity table", said + ", alpha1 = " + text::to_text(alpha1) + ", PF1*phi = " + text::to_text(pf_phi));
            if (auto save = o.get("save-capacity")) {
                const compute::TextFile written = windows::save_capacity_table(*save, imported, curve.kind);
                if (!written.ok()) {
                    err << "tremorvault-cli: " << *save << ": " << written.reason << '\n';
                    throw Exit{kFailed};
                }
            }
        }

        // Page 0: the unit first, since it writes T1; then the boxes; then Start.
        s.step([&] { f9.Combo1.set_list_index(list_index); });
        s.step([&] {
            if (auto v = o.get("g")) f9.T1.set_text(*v);
            if (auto v = o.get("t0")) f9.T2.set_text(*v);
            if (auto v = o.get("skip")) f9.T3.set_text(*v);
            if (auto v = o.get("m")) f9.T4.set_text(*v);
        });
        s.step([&] { f9.Text1.set_text(file); });
        if (own)
            s.step([&] { f9.Command2.press(); });
        else
            s.step([&] { f9.ReadCapacityTable(imported); });
        s.step([&] { f9.Command3.press(); });
        if (f9.pageIndex != 1) {
            err << "tremorvault-cli capacity: the capacity file was not read\n";
            throw Exit{kFailed};
        }

        // Page 1: the demand spectrum and Sa at every period.
        forms::OptionButton* soils[] = {&f9.demand.Option1, &f9.demand.Option2, &f9.demand.Option3, &f9.demand.Option4};
        forms::OptionButton* risks[] = {&f9.demand.Option5, &f9.demand.Option6};
        s.step([&] { soils[soil]->user_click(); });
        s.step([&] { risks[risk]->user_click(); });
        s.step([&] {
            if (auto v = o.get("scale")) f9.demand.xscale.set_text(*v);
            if (auto v = o.get("tstart")) f9.demand.tstart.set_text(*v);
            if (auto v = o.get("tend")) f9.demand.tend.set_text(*v);
            if (auto v = o.get("step")) f9.demand.xstep.set_text(*v);
        });
        if (auto f = o.get("spectrum-file")) {
            s.step([&] { f9.demand.Check1.user_click(); });
            s.platform.file_answers.push_back(*f);
            s.step([&] { f9.demand.Command4.press(); });
        } else {
            s.step([&] { f9.demand.Command6.press(); });
        }
        s.step([&] { f9.demand.Command7.press(); });
        if (o.has("teff-from-capacity")) s.step([&] { f9.Command8.press(); });
        s.step([&] { f9.Command3.press(); });
        // Without Sa the window stays on this page: the sweep is out of reach and its boxes stay
        // as they are.
        const bool swept = f9.pageIndex == 2;
        if (swept) {
            forms::OptionButton* types[] = {&f9.Op1, &f9.Op2, &f9.Op3};
            s.step([&] { types[type]->user_click(); });
            s.step([&] { f9.Command9.press(); });
        }

        if (auto table = o.get("table"); table && swept) {
            s.step([&] { f9.Fg3.set_selected_rows({}); });
            s.step([&] { f9.copy.choose(); });
            const compute::FileStatus written = compute::write_file(*table, s.platform.clipboard);
            if (!written.ok()) {
                err << "tremorvault-cli: " << *table << ": " << written.reason << '\n';
                throw Exit{kFailed};
            }
        }

        s.print("target displacement", f9.Re1.text());
        s.print("unit", f9.vahed.caption());
        s.print("SRA", f9.Re2.text());
        s.print("SRV", f9.Re3.text());
        s.print("Beff", f9.Re4.text());
        if (!swept && (o.get("table") || o.get("report-pdf") || o.get("report"))) {
            err << "tremorvault-cli capacity: no demand spectrum, so no table and no diagram\n";
            throw Exit{kFailed};
        }

        if (auto pdf = o.get("report-pdf")) {
            // Next from the last page shows the diagram; its page is what Print would send.
            s.step([&] { f9.Command3.press(); });
            windows::Form10* f10 = s.program.if_loaded<windows::Form10>();
            if (f10 == nullptr) {
                err << "tremorvault-cli capacity: the diagram could not be shown\n";
                throw Exit{kFailed};
            }
            std::vector<forms::Page> pages;
            s.step([&] { pages.push_back(f10->report_page()); });
            std::string why;
            if (!windows::write_pdf_file(s.platform, pages, *pdf, why)) {
                err << "tremorvault-cli: " << *pdf << ": " << why << '\n';
                throw Exit{kFailed};
            }
        }
        write_report(s, o, {}, [&](const windows::ReportRequest& r) { return windows::capacity_report(s.program, r); });
    } catch (const Exit& e) {
        return e.status;
    }
    return kDone;
}

}  // namespace tv::cli
