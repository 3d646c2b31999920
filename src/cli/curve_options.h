#pragma once
// The options that bring a pushover or capacity curve exported by another program: which case,
// which columns, which units, whether to move the first point to the origin.
#include <optional>
#include <ostream>
#include <string>

#include "cli/options.h"
#include "cli/session.h"
#include "compute/import/curve_import.h"

namespace tv::cli {

/// Usage lines of the options below.
extern const char* kCurveOptionsUsage;

/// The option names that take a value.
inline const char* const kCurveOptionNames[] = {"case", "columns", "units", "system", "shift"};

/// True when the command line asks for the import road whatever the file looks like.
bool curve_options_given(const ParsedOptions& o);

/// The import options of the command line; the reason when one is malformed. `system` is the
/// unit system when --system does not name one.
std::optional<compute::CurveImportOptions> curve_options(const ParsedOptions& o, compute::UnitSystem system,
                                                         std::string& why);

/// Reads the curve; on a failure (or a question the options leave open) prints why on standard
/// error and ends the command with status 1. Prints what was read and converted.
compute::CurveImport import_or_exit(Session& s, const std::string& command, const std::string& file,
                                    compute::CurveKind kind, const compute::CurveImportOptions& options);

}  // namespace tv::cli
