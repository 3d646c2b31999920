// The pushover steps of the coefficient and nsp commands.
#include "cli/pushover_steps.h"

#include <algorithm>
#include <ostream>

#include "cli/curve_options.h"
#include "text/format.h"
#include "text/number_text.h"
#include "windows/capacity/sa_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/coefficient/target_displacement_window.h"
#include "windows/project/main_frame_window.h"

namespace tv::cli {

const std::vector<std::string> kPushoverOptions{"step",  "ki-point", "ratio",     "tolerance", "yield", "ti",
                                                "weight", "stories", "c0-column", "cm-column", "soil",  "sa",
                                                "sa-code", "c3",     "case",      "columns",   "units", "system",
                                                "shift"};
const std::vector<std::string> kPushoverFlags{"use-alpha"};

const char* const kFitUsage =
    "  --step TEXT           the step to fit up to (default: the last row)\n"
    "  --ki-point TEXT       point number for Ki (default 1)\n"
    "  --ratio TEXT          fraction of the yield force where the first line meets the curve (0.6)\n"
    "  --tolerance TEXT      relative tolerance of the area match (0.01)\n"
    "  --yield X,Y           take this yield point instead of the automatic search\n"
    "  --ti TEXT             elastic period Ti, seconds (default 1)\n";

const char* const kTargetUsage =
    "  --weight TEXT         weight W: go on to the target displacement\n"
    "  --stories TEXT        number of stories\n"
    "  --c0-column 1|2|3     C0 column\n"
    "  --cm-column 1|2|3|4   Cm column\n"
    "  --soil I|II|III-IV    soil of C1 (default III-IV)\n"
    "  --sa TEXT             spectral acceleration at Te, in g\n"
    "  --sa-code SOIL,HAZARD Sa and Ts from the code spectrum at Te (Form11; SOIL I..IV, HAZARD low|high)\n"
    "  --use-alpha           use alpha-e in Rmax\n"
    "  --c3 TEXT             a typed C3\n";

namespace {

bool is_workbook(const std::string& name) {
    const std::string u = text::upper(name);
    auto ends = [&u](const std::string& tail) {
        return u.size() >= tail.size() && u.compare(u.size() - tail.size(), tail.size(), tail) == 0;
    };
    return ends(".XLS") || ends(".XLSX");
}

}  // namespace

std::optional<int> parse_pushover_choices(const ParsedOptions& o, const std::string& command, const std::string& usage,
                                          std::ostream& err, PushoverChoices& c) {
    if (auto v = o.get("sa-code")) {
        c.sa_code = split_list(*v);
        const std::vector<std::string>& soils = kSoilNames;
        const std::vector<std::string> hazards{"low", "high"};
        if (c.sa_code.size() != 2 || std::find(soils.begin(), soils.end(), c.sa_code[0]) == soils.end() ||
            std::find(hazards.begin(), hazards.end(), c.sa_code[1]) == hazards.end())
            return usage_error(err, command,
                               "--sa-code takes SOIL,HAZARD with SOIL one of I II III IV and HAZARD low or high", usage);
    }
    if (auto y = o.get("yield")) {
        c.yield = split_list(*y);
        if (c.yield.size() != 2) return usage_error(err, command, "--yield takes X,Y", usage);
    }
    // The index of an option's value among the allowed ones; -1 when it is not given.
    bool bad_choice = false;
    auto one_of = [&](const char* name, const std::vector<std::string>& allowed) {
        auto v = o.get(name);
        if (!v) return -1;
        auto it = std::find(allowed.begin(), allowed.end(), *v);
        if (it != allowed.end()) return static_cast<int>(it - allowed.begin());
        err << "tremorvault-cli " << command << ": --" << name << " takes one of";
        for (const auto& a : allowed) err << ' ' << a;
        err << '\n';
        bad_choice = true;
        return -1;
    };
    c.c0_column = one_of("c0-column", {"1", "2", "3"});
    c.cm_column = one_of("cm-column", {"1", "2", "3", "4"});
    c.soil = one_of("soil", {"I", "II", "III-IV"});
    if (bad_choice) {
        err << usage;
        return kUsage;
    }
    std::string why;
    const auto import_options = curve_options(o, compute::UnitSystem::kgf_cm, why);
    if (!import_options) return usage_error(err, command, why, usage);
    c.import = *import_options;
    return std::nullopt;
}

void run_pushover_steps(Session& s, const std::string& command, const ParsedOptions& o, const std::string& file,
                        const PushoverChoices& c) {
    require_readable(s, file);
    s.step([&] { s.program.form<windows::frmMain>().PUSHOVER.choose(); });
    windows::Form6& f6 = s.program.form<windows::Form6>();
    // The program's own layouts take its own readers; any other curve is imported and goes into
    // the step table as a listing would.
    if (curve_options_given(o) || !compute::pushover_file_has_own_layout(file, is_workbook(file))) {
        const compute::CurveImport curve = import_or_exit(s, command, file, compute::CurveKind::pushover, c.import);
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
            s.err << "tremorvault-cli " << command << ": no step " << *step << " in " << file << '\n';
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
    if (!c.yield.empty()) {
        s.step([&] { f6.txtXC2.set_text(c.yield[0]); });
        s.step([&] { f6.txtYC2.set_text(c.yield[1]); });
        s.step([&] { f6.Command4.press(); });
    } else {
        s.step([&] { f6.Command3.press(); });
    }
}

windows::Form8& run_target_steps(Session& s, const ParsedOptions& o, const PushoverChoices& c) {
    windows::Form6& f6 = s.program.form<windows::Form6>();
    s.step([&] { f6.Command5.press(); });
    windows::Form8& f8 = s.program.form<windows::Form8>();
    if (auto weight = o.get("weight")) s.step([&] { f8.Text10.set_text(*weight); });
    if (auto v = o.get("stories")) s.step([&] { f8.Text1.set_text(*v); });
    forms::CheckBox* c0_boxes[] = {&f8.Check1, &f8.Check2, &f8.Check3};
    forms::CheckBox* cm_boxes[] = {&f8.Check11, &f8.Check12, &f8.Check13, &f8.Check14};
    forms::CheckBox* soil_boxes[] = {&f8.Check7, &f8.Check8, &f8.Check9};
    if (c.c0_column >= 0) s.step([&] { c0_boxes[c.c0_column]->user_click(); });
    if (c.cm_column >= 0) s.step([&] { cm_boxes[c.cm_column]->user_click(); });
    if (c.soil >= 0) s.step([&] { soil_boxes[c.soil]->user_click(); });
    if (auto v = o.get("sa")) s.step([&] { f8.Text2.set_text(*v); });
    if (!c.sa_code.empty()) {
        s.step([&] { f8.Command3.press(); });
        auto& f11 = s.program.form<windows::Form11>();
        forms::OptionButton* soils[] = {&f11.demand.Option1, &f11.demand.Option2, &f11.demand.Option3,
                                        &f11.demand.Option4};
        const std::size_t soil_index = c.sa_code[0] == "I" ? 0 : c.sa_code[0] == "II" ? 1 : c.sa_code[0] == "III" ? 2 : 3;
        s.step([&] { soils[soil_index]->user_click(); });
        s.step([&] { (c.sa_code[1] == "low" ? f11.demand.Option5 : f11.demand.Option6).user_click(); });
        s.step([&] { f11.demand.Command6.press(); });
        s.step([&] { f11.demand.Command7.press(); });
    }
    if (o.has("use-alpha")) s.step([&] { f8.Check10.user_click(); });
    if (auto v = o.get("c3")) {
        s.step([&] { f8.Check15.user_click(); });
        s.step([&] { f8.Text6.set_text(*v); });
    }
    s.step([&] { f8.Command1.press(); });
    return f8;
}

}  // namespace tv::cli
