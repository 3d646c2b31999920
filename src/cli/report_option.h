#pragma once
// --report FILE.pdf and --paper a4|letter: a road's engineering report from the batch run.
#include <functional>
#include <string>
#include <vector>

#include "cli/options.h"
#include "cli/session.h"
#include "windows/road_reports.h"

namespace tv::cli {

extern const char* const kReportUsage;
inline const std::vector<std::string> kReportOptions{"report", "paper"};

/// The paper of --paper; the reason in `why` when it names another.
bool report_paper(const ParsedOptions& o, windows::Paper& paper, std::string& why);

/// With --report: composes the pages by `compose` and writes them whole; a file that cannot be
/// written ends the command with 1.
void write_report(Session& s, const ParsedOptions& o, windows::ReportRequest request,
                  const std::function<std::vector<forms::Page>(const windows::ReportRequest&)>& compose);

}  // namespace tv::cli
