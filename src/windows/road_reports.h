#pragma once
// The engineering reports of the three roads, composed from the windows' models as they stand:
// the texts of their boxes are the values reported.
#include <string>
#include <vector>

#include "forms/page.h"

namespace tv::compute::nsp {
struct NspComparison;
}

namespace tv::windows {

class Program;
using forms::Paper;

/// What the windows do not hold: the paper, the project's name and the files the user gave.
struct ReportRequest {
    Paper paper = Paper::a4;
    std::string project;                     // "" when there is none
    std::vector<std::string> record_files;   // X, Y of each record (or one file a record)
    std::vector<std::string> record_scales;  // the scale typed for each record, when known
};

/// Ground motion: the records, the design spectrum, the response spectra and the comparison.
std::vector<forms::Page> ground_motion_report(Program& program, const ReportRequest& request);
/// Coefficient method: Form6's fit, Form8's coefficients and the procedures side by side: those
/// of `comparison`, else those of the comparison window when it ran.
std::vector<forms::Page> coefficient_report(Program& program, const ReportRequest& request,
                                            const compute::nsp::NspComparison* comparison = nullptr);
/// Capacity spectrum method: the capacity curve, the demand, the sweep's result and the diagram.
std::vector<forms::Page> capacity_report(Program& program, const ReportRequest& request);

/// Whether a road has results to report.
bool ground_motion_has_results(Program& program);
bool coefficient_has_results(Program& program);
bool capacity_has_results(Program& program);

}  // namespace tv::windows
