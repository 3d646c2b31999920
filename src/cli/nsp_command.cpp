// tremorvault-cli nsp: the nonlinear static procedures side by side on the curve of the
// coefficient road (Form6, and Form8 when a weight is given) and one demand spectrum.
#include <algorithm>
#include <cmath>
#include <memory>
#include <ostream>

#include "cli/commands.h"
#include "cli/options.h"
#include "cli/pushover_steps.h"
#include "cli/report_option.h"
#include "cli/session.h"
#include "compute/capacity/demand_spectrum.h"
#include "compute/nsp/nsp_comparison.h"
#include "text/runtime_error.h"
#include "windows/coefficient/nsp_inputs.h"
#include "windows/coefficient/pushover_window.h"

namespace tv::cli {

namespace {

namespace nsp = compute::nsp;

std::string nsp_usage() {
    return std::string(
               "usage: tremorvault-cli nsp [OPTIONS] PUSHOVER_FILE\n"
               "  The curve is read and fitted as by the coefficient command; with --weight its target\n"
               "  displacement window runs too and gives the first column.\n") +
           kFitUsage + kTargetUsage +
           "  --ec8 TYPE,GROUND,AG  demand: EN 1998-1 elastic spectrum, type 1|2, ground A..E, ag in g\n"
           "  --design SOIL,HAZARD[,A]  demand: the design spectrum, SOIL I..IV, HAZARD\n"
           "                        low|moderate|high|very-high, A in g (default: the hazard's)\n"
           "  --spectrum-file FILE  demand: period and Sa (g) per line\n"
           "  --tc TEXT             corner period TC of a spectrum file, s (for N2)\n"
           "  --te TEXT             effective period Te instead of the one shown by the fit, s\n"
           "  --gamma TEXT          G1 phi1,roof of the first mode (default 1)\n"
           "  --mass-ratio TEXT     modal mass ratio alpha1 of the first mode (default 1)\n"
           "  --g TEXT              g in the curve's length unit per s^2 (default 981)\n"
           "  --units LENGTH,FORCE  unit names of the curve (default cm,kgf)\n"
           "  --site A|B|C|D|E|F    ASCE 41 site class (default D)\n"
           "  --asce-c0 table|modal ASCE 41 C0 from Table 7-5 (by --stories) or G1 phi1,roof (table)\n"
           "  --asce-c0-column 1|2|3 Table 7-5: shear building triangular, uniform, other (3)\n"
           "  --asce-cm TEXT        ASCE 41 Cm (default 1)\n"
           "  --alpha-pdelta TEXT   ASCE 41 negative slope ratio from P-delta (default 0)\n"
           "  --near-field          ASCE 41 lambda 0.2 instead of 0.8\n"
           "  --csm-t0 TEXT         capacity spectrum sweep: T0, s (default 0.4358)\n"
           "  --csm-m TEXT          capacity spectrum sweep: step of the initial slope (default 2)\n"
           "  --csm-type A|B|C      capacity spectrum sweep: structure type (default A)\n"
           "  --beta0 TEXT          FEMA 440 initial damping, percent (default 5)\n"
           "  --n2-iterate          N2: iterate dm* on dt* (EN 1998-1 Annex B)\n"
           "  --iterations          print each method's iterations\n" + kReportUsage;
}

using nsp::six_digits;

// A typed number of this command's own options; nothing when it is not one.
std::optional<double> number(const std::string& text) {
    try {
        std::size_t used = 0;
        const double v = std::stod(text, &used);
        if (used == text.size() && std::isfinite(v)) return v;
    } catch (...) {
    }
    return std::nullopt;
}

// The demand of a period-and-Sa file, interpolated by the capacity window's own search.
nsp::Demand file_demand(const std::string& path) {
    auto aux = std::make_shared<text::DoubleArray>(), sa = std::make_shared<text::DoubleArray>();
    compute::read_period_sa_file(path, *aux, *sa);
    nsp::Demand d;
    const long last = aux->ubound() - 1;
    if (last < 2) return d;
    d.source = "the spectrum file";
    d.T_min = (*aux)(1);
    d.T_max = (*aux)(last);
    // The search finds nothing at the last period and fails at 0 s: no ordinate there.
    d.Sa = [aux, sa](double T) {
        double found = std::nan("");
        try {
            compute::search_sa(*aux, *sa, T, [&](double v) { found = v; });
        } catch (const text::RuntimeError&) {
            return std::nan("");
        }
        return found;
    };
    return d;
}

void print_column(Session& s, const nsp::MethodColumn& m, bool iterations) {
    s.print("method", m.title);
    for (const nsp::NamedValue& v : m.values)
        s.print("  " + v.name, six_digits(v.value) + (v.unit.empty() ? "" : " " + v.unit) + "  (" + v.clause + ")");
    for (const std::string& n : m.notes) s.print("  note", n);
    if (iterations && !m.iterations.rows.empty()) {
        std::string head;
        for (const std::string& h : m.iterations.headings) head += (head.empty() ? "" : " | ") + h;
        s.print("  iterations", head);
        for (std::size_t i = 0; i < m.iterations.rows.size(); ++i) {
            std::string row;
            for (double v : m.iterations.rows[i]) row += (row.empty() ? "" : " | ") + six_digits(v);
            s.print("  " + std::to_string(i + 1), row);
        }
    }
    if (m.target)
        s.print("  target displacement", six_digits(*m.target) + " " + m.target_unit);
    else
        s.print("  no result", m.no_result);
}

}  // namespace

int run_nsp(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    OptionSpec known{{"ec8", "design", "spectrum-file", "tc", "te", "gamma", "mass-ratio", "g", "units", "site", "asce-c0",
                      "asce-c0-column", "asce-cm", "alpha-pdelta", "csm-t0", "csm-m", "csm-type", "beta0"},
                     {"near-field", "n2-iterate", "iterations"}};
    known.with_value.insert(kPushoverOptions.begin(), kPushoverOptions.end());
    known.flags.insert(kPushoverFlags.begin(), kPushoverFlags.end());
    known.with_value.insert(kReportOptions.begin(), kReportOptions.end());
    const std::string usage = nsp_usage();
    ParsedOptions o;
    if (auto done = parse_command(args, known, "nsp", usage, o, out, err)) return *done;
    if (o.files.size() != 1) return usage_error(err, "nsp", "give one pushover file", usage);
    {
        windows::Paper paper;
        std::string why_paper;
        if (!report_paper(o, paper, why_paper)) return usage_error(err, "nsp", why_paper, usage);
    }
    PushoverChoices c;
    if (auto bad = parse_pushover_choices(o, "nsp", usage, err, c)) return *bad;

    // This command's own settings, checked before anything runs.
    nsp::NspInputs settings;
    std::optional<nsp::Ec8Spectrum> ec8;
    std::optional<double> te;
    std::string why;
    auto take = [&](const char* name, double& to) {
        if (auto v = o.get(name)) {
            if (auto x = number(*v)) to = *x;
            else why = std::string("--") + name + " takes a number";
        }
    };
    take("gamma", settings.gamma_phi);
    take("mass-ratio", settings.alpha1);
    take("g", settings.g);
    take("asce-cm", settings.asce41.Cm);
    take("alpha-pdelta", settings.asce41.alpha_p_delta);
    take("csm-t0", settings.csm.T0);
    take("csm-m", settings.csm.m);
    take("beta0", settings.beta0);
    double tc = 0, te_value = 0;
    take("tc", tc);
    take("te", te_value);
    if (o.get("te")) te = te_value;
    if (auto v = o.get("units")) {
        const auto u = split_list(*v);
        if (u.size() == 2) {
            settings.length_unit = u[0];
            settings.force_unit = u[1];
        } else {
            why = "--units takes LENGTH,FORCE";
        }
    }
    if (auto v = o.get("site")) {
        if (v->size() == 1 && (*v)[0] >= 'A' && (*v)[0] <= 'F') settings.asce41.site = nsp::SiteClass((*v)[0] - 'A');
        else why = "--site takes one of A B C D E F";
    }
    if (auto v = o.get("asce-c0")) {
        if (*v == "table" || *v == "modal") settings.asce41.c0_from_mode = *v == "modal";
        else why = "--asce-c0 takes table or modal";
    }
    if (auto v = o.get("asce-c0-column")) {
        if (*v == "1" || *v == "2" || *v == "3") settings.asce41.c0_column = (*v)[0] - '0';
        else why = "--asce-c0-column takes 1, 2 or 3";
    }
    if (auto v = o.get("csm-type")) {
        if (*v == "A" || *v == "B" || *v == "C") settings.csm.kind = (*v)[0] - 'A' + 1;
        else why = "--csm-type takes A, B or C";
    }
    if (auto v = o.get("ec8")) {
        const auto p = split_list(*v);
        const std::optional<double> ag = p.size() == 3 ? number(p[2]) : std::nullopt;
        if (p.size() == 3 && (p[0] == "1" || p[0] == "2") && p[1].size() == 1 && ag)
            ec8 = nsp::Ec8Spectrum{p[0][0] - '0', p[1][0], *ag, 5};
        if (!ec8 || !nsp::ec8_demand(*ec8)) why = "--ec8 takes TYPE,GROUND,AG: 1 or 2, A..E, ag above 0 in g";
    }
    std::optional<nsp::Demand> design;
    if (auto v = o.get("design")) {
        const auto p = split_list(*v);
        const std::vector<std::string>& soils = kSoilNames;
        const std::vector<std::string>& hazards = kHazardNames;
        const auto soil = p.empty() ? soils.end() : std::find(soils.begin(), soils.end(), p[0]);
        const auto hazard = p.size() < 2 ? hazards.end() : std::find(hazards.begin(), hazards.end(), p[1]);
        if ((p.size() == 2 || p.size() == 3) && soil != soils.end() && hazard != hazards.end()) {
            const auto h = compute::Hazard(hazard - hazards.begin());
            const std::optional<double> A = p.size() == 3 ? number(p[2]) : compute::default_scale(h);
            if (A) design = nsp::design_demand(compute::Soil(soil - soils.begin()), h, *A);
        }
        if (!design)
            why = "--design takes SOIL,HAZARD[,A]: I..IV, low|moderate|high|very-high, A above 0 in g";
    }
    if ((ec8 ? 1 : 0) + (design ? 1 : 0) + (o.get("spectrum-file") ? 1 : 0) > 1)
        why = "give one of --ec8, --design and --spectrum-file";
    if (!why.empty()) return usage_error(err, "nsp", why, usage);
    if (auto stories = o.get("stories")) settings.asce41.stories = text::val(*stories);
    settings.n2_iterate = o.has("n2-iterate");
    settings.asce41.near_field = o.has("near-field");

    const std::string& file = o.files.front();
    Session s(out, err);
    try {
        run_pushover_steps(s, "nsp", o, file, c);
        if (o.get("weight")) run_target_steps(s, o, c);
        windows::Form6& f6 = s.program.form<windows::Form6>();
        s.print("X yield", f6.txtXC2.text());
        s.print("Y yield", f6.txtYC2.text());
        s.print("T-effective", f6.txtTEF.caption());

        // The coefficient road's values, then this command's settings.
        nsp::NspInputs in = windows::nsp_inputs(s.program);
        in.g = settings.g;
        in.length_unit = settings.length_unit;
        in.force_unit = settings.force_unit;
        in.gamma_phi = settings.gamma_phi;
        in.alpha1 = settings.alpha1;
        in.asce41 = settings.asce41;
        in.csm = settings.csm;
        in.beta0 = settings.beta0;
        in.n2_iterate = settings.n2_iterate;
        if (te) in.Te = *te;
        if (ec8) in.demand = *nsp::ec8_demand(*ec8);
        if (design) in.demand = *design;
        if (auto path = o.get("spectrum-file")) {
            require_readable(s, *path);
            try {
                in.demand = file_demand(*path);
            } catch (const text::RuntimeError& e) {
                err << "tremorvault-cli: " << *path << ": " << e.description() << '\n';
                throw Exit{kFailed};
            }
        }
        if (o.get("tc")) in.demand.TC = tc;

        const nsp::NspComparison result = nsp::compare_procedures(in);
        for (const nsp::MethodColumn& m : result.columns) print_column(s, m, o.has("iterations"));
        s.print("targets", "");
        for (const nsp::MethodColumn& m : result.columns)
            s.print("  " + m.title, m.target ? six_digits(*m.target) + " " + m.target_unit : "none");
        write_report(s, o, {}, [&](const windows::ReportRequest& r) {
            return windows::coefficient_report(s.program, r, &result);
        });
    } catch (const Exit& e) {
        return e.status;
    }
    return kDone;
}

}  // namespace tv::cli
