#pragma once
// The pushover steps that the coefficient and nsp commands share: Form6 reads the curve and
// finds the yield point; Form8 takes the boxes and calculates the target displacement.
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "cli/options.h"
#include "cli/session.h"
#include "compute/import/curve_import.h"

namespace tv::windows {
class Form8;
}

namespace tv::cli {

/// The options of the two windows, for a command's option list.
extern const std::vector<std::string> kPushoverOptions;
extern const std::vector<std::string> kPushoverFlags;
/// Their lines of the usage text: Form6's, then Form8's.
extern const char* const kFitUsage;
extern const char* const kTargetUsage;

/// The choices among fixed values, checked before anything runs.
struct PushoverChoices {
    std::vector<std::string> yield;    // X, Y; empty: the automatic search
    std::vector<std::string> sa_code;  // SOIL, HAZARD; empty: none
    int c0_column = -1, cm_column = -1, soil = -1;  // index among the allowed values; -1 not given
    compute::CurveImportOptions import;                // for a curve exported by another program
};

/// Checks the choices; the exit status when the command line is bad (after the message).
std::optional<int> parse_pushover_choices(const ParsedOptions& o, const std::string& command, const std::string& usage,
                                          std::ostream& err, PushoverChoices& c);

/// Form6: the file read (a spreadsheet for .xls/.xlsx names, else a listing; a curve in any
/// other layout imported into the step table), the step, the boxes and the yield point,
/// automatic or typed.
void run_pushover_steps(Session& s, const std::string& command, const ParsedOptions& o, const std::string& file,
                        const PushoverChoices& c);

/// "Calculate Target Displacement", Form8's boxes in order, Form11 when asked, Calculate.
windows::Form8& run_target_steps(Session& s, const ParsedOptions& o, const PushoverChoices& c);

}  // namespace tv::cli
