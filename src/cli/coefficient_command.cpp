// tremorvault-cli coefficient: the pushover road on Form6 and Form8.
#include <algorithm>
#include <ostream>

#include "cli/commands.h"
#include "cli/curve_options.h"
#include "cli/options.h"
#include "cli/pushover_steps.h"
#include "cli/report_option.h"
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

std::string coefficient_usage() {
    return std::string(
    "usage: tremorvault-cli coefficient [OPTIONS] PUSHOVER_FILE\n"
    "  A name ending in .xls or .xlsx is read as a spreadsheet (Step, Displacement, Base Force\n"
    "  in columns A to C from row 2), any other as a text listing (a line holding\n"
    "  \"Displacement\", then Step, Displacement, Base Force and one more column per line).\n"
    "  Any other curve is imported, converted to kgf-cm (or --system) and printed as\n"
    "  curve, case, units, first point and vertical steps before the results.\n") +
    kFitUsage +
    "  --vs TEXT             design base shear: calculate the R factor\n"
    + kTargetUsage +
           "  --report-pdf FILE     the printed page of Form6 (and of Form8 when it ran), to PDF\n" + kReportUsage +
           kCurveOptionsUsage;
}

}  // namespace

int run_coefficient(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    OptionSpec known{{"vs", "report-pdf"}, {}};
    known.with_value.insert(kPushoverOptions.begin(), kPushoverOptions.end());
    known.flags.insert(kPushoverFlags.begin(), kPushoverFlags.end());
    known.with_value.insert(kReportOptions.begin(), kReportOptions.end());
    const std::string usage = coefficient_usage();
    ParsedOptions o;
    if (auto done = parse_command(args, known, "coefficient", usage, o, out, err)) return *done;
    if (o.files.size() != 1) return usage_error(err, "coefficient", "give one pushover file", usage);
    {
        windows::Paper paper;
        std::string why_paper;
        if (!report_paper(o, paper, why_paper)) return usage_error(err, "coefficient", why_paper, usage);
    }
    PushoverChoices c;
    if (auto bad = parse_pushover_choices(o, "coefficient", usage, err, c)) return *bad;

    const std::string& file = o.files.front();
    Session s(out, err);
    try {
        run_pushover_steps(s, "coefficient", o, file, c);
        windows::Form6& f6 = s.program.form<windows::Form6>();
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

        if (o.get("weight")) {
            windows::Form8& f8 = run_target_steps(s, o, c);
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
        write_report(s, o, {}, [&](const windows::ReportRequest& r) { return windows::coefficient_report(s.program, r); });
    } catch (const Exit& e) {
        return e.status;
    }
    return kDone;
}

}  // namespace tv::cli
