// tremorvault-cli coefficient: the pushover road on Form6 and Form8.
#include <algorithm>
#include <ostream>

#include "cli/commands.h"
#include "cli/curve_options.h"
#include "cli/options.h"
#include "cli/session.h"
#include "text/format.h"
#include "text/number_text.h"
#include "windows/capacity/sa_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/coefficient/target_displacement_window.h"
#include "windows/printing/printing.h"
#include "windows/project/main_frame_window.h"

namespace tv::cli {

namespace {

const char* kCoefficientUsage =
    "usage: tremorvault-cli coefficient [OPTIONS] PUSHOVER_FILE\n"
    "  A name ending in .xls or .xlsx is read as a spreadsheet (Step, Displacement, Base Force\n"
    "  in columns A to C from row 2), any other as a text listing (a line holding\n"
    "  \"Displacement\", then Step, Displacement, Base Force and one more column per line).\n"
    "  Any other curve is imported, converted to kgf-cm (or --system) and printed as\n"
    "  curve, case, units, first point and vertical steps before the results.\n"
    "  --step TEXT           the step to fit up to (default: the last row)\n"
    "  --ki-point TEXT       point number for Ki (default 1)\n"
    "  --ratio TEXT          fraction of the yield force where the first line meets the curve (0.6)\n"
    "  --tolerance TEXT      relative tolerance of the area match (0.01)\n"
    "  --yield X,Y           take this yield point instead of the automatic search\n"
    "  --ti TEXT             elastic period Ti, seconds (default 1)\n"
    "  --vs TEXT             design base shear: calculate the R factor\n"
    "  --weight TEXT         weight W: go on to the target displacement\n"
    "  --stories TEXT        number of stories\n"
    "  --c0-column 1|2|3     C0 column\n"
    "  --cm-column 1|2|3|4   Cm column\n"
    "  --soil I|II|III-IV    soil of C1 (default III-IV)\n"
    "  --sa TEXT             spectral acceleration at Te, in g\n"
    "  --sa-code SOIL,HAZARD Sa and Ts from the code spectrum at Te (Form11; SOIL I..IV, HAZARD low|high)\n"
    "  --use-alpha           use alpha-e in Rmax\n"
    "  --c3 TEXT             a typed C3\n"
    "  --report-pdf FILE     the printed page of Form6 (and of Form8 when it ran), to PDF\n";

std::string coefficient_usage() { return std::string(kCoefficientUsage) + kCurveOptionsUsage; }

bool is_workbook(const std::string& name) {
    const std::string u = text::upper(name);
    auto ends = [&u](const std::string& tail) {
        return u.size() >= tail.size() && u.compare(u.size() - tail.size(), tail.size(), tail) == 0;
    };
    return ends(".XLS") || ends(".XLSX");
}

}  // namespace

int run_coefficient(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    OptionSpec known{{"step", "ki-point", "ratio", "tolerance", "yield", "ti", "vs", "weight", "stories", "c0-column",
                     "cm-column", "soil", "sa", "sa-code", "c3", "report-pdf"},
                    {"use-alpha"}};
    known.with_value.insert(std::begin(kCurveOptionNames), std::end(kCurveOptionNames));
    const std::string usage = coefficient_usage();
    ParsedOptions o;
    if (auto done = parse_command(args, known, "coefficient", usage, o, out, err)) return *done;
    if (o.files.size() != 1) return usage_error(err, "coefficient", "give one pushover file", usage);
    std::vector<std::string> sa_code;
    if (auto v = o.get("sa-code")) {
        sa_code = split_list(*v);
        const std::vector<std::string> soils{"I", "II", "III", "IV"}, hazards{"low", "high"};
        if (sa_code.size() != 2 || std::find(soils.begin(), soils.end(), sa_code[0]) == soils.end() ||
            std::find(hazards.begin(), hazards.end(), sa_code[1]) == hazards.end())
            return usage_error(err, "coefficient",
                               "--sa-code takes SOIL,HAZARD with SOIL one of I II III IV and HAZARD low or high", usage);
    }
    std::vector<std::string> yield;
    if (auto y = o.get("yield")) {
        yield = split_list(*y);
        if (yield.size() != 2) return usage_error(err, "coefficient", "--yield takes X,Y", usage);
    }
    // The index of an option's value among the allowed ones; -1 when it is not given.
    bool bad_choice = false;
    auto one_of = [&](const char* name, const std::vector<std::string>& allowed) {
        auto v = o.get(name);
        if (!v) return -1;
        auto it = std::find(allowed.begin(), allowed.end(), *v);
        if (it != allowed.end()) return static_cast<int>(it - allowed.begin());
        err << "tremorvault-cli coefficient: --" << name << " takes one of";
        for (const auto& a : allowed) err << ' ' << a;
        err << '\n';
        bad_choice = true;
        return -1;
    };
    const int c0_column = one_of("c0-column", {"1", "2", "3"});
    const int cm_column = one_of("cm-column", {"1", "2", "3", "4"});
    const int soil = one_of("soil", {"I", "II", "III-IV"});
    if (bad_choice) {
        err << usage;
        return kUsage;
    }
    std::string why;
    const auto import_options = curve_options(o, compute::UnitSystem::kgf_cm, why);
    if (!import_options) return usage_error(err, "coefficient", why, usage);

    const std::string& file = o.files.front();
    Session s(out, err);
    try {
        require_readable(s, file);
        s.step([&] { s.program.form<windows::frmMain>().PUSHOVER.choose(); });
        windows::Form6& f6 = s.program.form<windows::Form6>();
        // The program's own layouts take its own readers; any other curve is imported and goes
        // into the step table as a listing would.
        if (curve_options_given(o) || !compute::pushover_file_has_own_layout(file, is_workbook(file))) {
            const compute::CurveImport curve =
                import_or_exit(s, "coefficient", file, compute::CurveKind::pushover, *import_options);
            s.step([&] { f6.TakeImportedCurve(file, curve); });
        } else if (is_workbook(file)) {
            s.platform.file_answers.push_back(file);
            s.step([&] { f6.Command1.press(); });
        } else {
            s.step([&] { f6.Text1.set_text(file); });
            s.step([&] { f6.Command2.press(); });
        }
        if (auto step = o.get("step")) {
            const double wanted = text::val(*step);
            int row = 0;
            for (int r = 1; r < f6.Fg.rows() && row == 0; ++r)
                if (text::val(f6.Fg.text(r, 0)) == wanted) row = r;
            if (row == 0) {
                err << "tremorvault-cli coefficient: no step " << *step << " in " << file << '\n';
                throw Exit{kFailed};
            }
            s.step([&] { f6.select_row(row); });
        }
        s.step([&] {
            if (auto v = o.get("ki-point")) f6.Text4.set_text(*v);
            if (auto v = o.get("ratio")) f6.txtZarib.set_text(*v);
            if (auto v = o.get("tolerance")) f6.txtTolerance.set_text(*v);
            if (auto v = o.get("ti")) f6.txtTI.set_text(*v);
        });
        if (!yield.empty()) {
            s.step([&] { f6.txtXC2.set_text(yield[0]); });
            s.step([&] { f6.txtYC2.set_text(yield[1]); });
            s.step([&] { f6.Command4.press(); });
        } else {
            s.step([&] { f6.Command3.press(); });
        }
        s.print("Ki", f6.txtKi.text());
        s.print("X yield", f6.txtXC2.text());
        s.print("Y yield", f6.txtYC2.text());
        s.print("pushover area", f6.lblArea.caption());
        s.print("collision area", f6.lblArea2.caption());
        s.print("collision point", f6.Label19.caption());
        s.print("alfa1", f6.Text11.text());
        s.print("K-effective", f6.txtKE.caption());
        s.print("T-effective", f6.txtTEF.caption());

        if (auto vs = o.get("vs")) {
            s.step([&] { f6.Text6.set_text(*vs); });
            s.step([&] { f6.Command8.press(); });
            s.print("Rs", f6.Text7.text());
            s.print("Rm1", f6.Text8.text());
            s.print("Rm2", f6.Text10.text());
            s.print("Ru", f6.Text9.text());
            s.print("miu", f6.Text13.text());
        }

        if (auto weight = o.get("weight")) {
            s.step([&] { f6.Command5.press(); });
            windows::Form8& f8 = s.program.form<windows::Form8>();
            s.step([&] { f8.Text10.set_text(*weight); });
            if (auto v = o.get("stories")) s.step([&] { f8.Text1.set_text(*v); });
            forms::CheckBox* c0_boxes[] = {&f8.Check1, &f8.Check2, &f8.Check3};
            forms::CheckBox* cm_boxes[] = {&f8.Check11, &f8.Check12, &f8.Check13, &f8.Check14};
            forms::CheckBox* soil_boxes[] = {&f8.Check7, &f8.Check8, &f8.Check9};
            if (c0_column >= 0) s.step([&] { c0_boxes[c0_column]->user_click(); });
            if (cm_column >= 0) s.step([&] { cm_boxes[cm_column]->user_click(); });
            if (soil >= 0) s.step([&] { soil_boxes[soil]->user_click(); });
            if (auto v = o.get("sa")) s.step([&] { f8.Text2.set_text(*v); });
            if (!sa_code.empty()) {
                s.step([&] { f8.Command3.press(); });
                auto& f11 = s.program.form<windows::Form11>();
                forms::OptionButton* soils[] = {&f11.demand.Option1, &f11.demand.Option2, &f11.demand.Option3, &f11.demand.Option4};
                const std::size_t soil_index = sa_code[0] == "I" ? 0 : sa_code[0] == "II" ? 1 : sa_code[0] == "III" ? 2 : 3;
                s.step([&] { soils[soil_index]->user_click(); });
                s.step([&] { (sa_code[1] == "low" ? f11.demand.Option5 : f11.demand.Option6).user_click(); });
                s.step([&] { f11.demand.Command6.press(); });
                s.step([&] { f11.demand.Command7.press(); });
            }
            if (o.has("use-alpha")) s.step([&] { f8.Check10.user_click(); });
            if (auto v = o.get("c3")) {
                s.step([&] { f8.Check15.user_click(); });
                s.step([&] { f8.Text6.set_text(*v); });
            }
            s.step([&] { f8.Command1.press(); });
            s.print("C0", f8.Text3.text());
            s.print("C1", f8.Text4.text());
            s.print("C2", f8.Text5.text());
            s.print("C3", f8.Text6.text());
            s.print("R", f8.Text13.text());
            s.print("Alpha", f8.Label18.caption());
            s.print("warning", f8.Label17.caption());
            s.print("Sa", f8.Text2.text());
            s.print("Ts", f8.Text8.text());
            s.print("target displacement", f8.Text9.text());
            s.print("Rmax", f8.Text14.text());
        }

        if (auto pdf = o.get("report-pdf")) {
            // The pages Print would send; the batch platform has no printer to send them to.
            std::vector<forms::Page> pages;
            s.step([&] { pages.push_back(f6.report_page()); });
            if (auto* f8 = s.program.if_loaded<windows::Form8>(); f8 && o.get("weight"))
                s.step([&] { pages.push_back(f8->report_page()); });
            std::string why;
            if (!windows::write_pdf_file(s.platform, pages, *pdf, why)) {
                err << "tremorvault-cli: " << *pdf << ": " << why << '\n';
                throw Exit{kFailed};
            }
        }
    } catch (const Exit& e) {
        return e.status;
    }
    return kDone;
}

}  // namespace tv::cli
