#include "cli/report_option.h"

#include <ostream>

#include "windows/printing/printing.h"

namespace tv::cli {

const char* const kReportUsage =
    "  --report FILE.pdf     the engineering report of the road: inputs, results with their units,\n"
    "                        formulas and plots, on as many pages as it needs\n"
    "  --paper a4|letter     paper of the report (default a4)\n";

bool report_paper(const ParsedOptions& o, windows::Paper& paper, std::string& why) {
    const std::string name = o.get("paper").value_or("a4");
    if (name != "a4" && name != "letter") {
        why = "--paper takes one of a4 letter";
        return false;
    }
    paper = name == "letter" ? windows::Paper::letter : windows::Paper::a4;
    return true;
}

void write_report(Session& s, const ParsedOptions& o, windows::ReportRequest request,
                  const std::function<std::vector<forms::Page>(const windows::ReportRequest&)>& compose) {
    const auto path = o.get("report");
    if (!path) return;
    std::string why;
    report_paper(o, request.paper, why);
    std::vector<forms::Page> pages;
    s.step([&] { pages = compose(request); });
    if (!windows::write_pdf_file(s.platform, pages, *path, why)) {
        s.err << "tremorvault-cli: " << *path << ": " << why << '\n';
        throw Exit{kFailed};
    }
}

}  // namespace tv::cli
