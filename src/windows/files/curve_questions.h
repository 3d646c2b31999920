#pragma once
// A curve exported by another program, read for a window: what the file leaves open (the load
// case, the columns, the units of a file that states none, a first point off the origin) is
// asked through the platform, and what was read and converted is said in words.
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "compute/import/curve_import.h"
#include "forms/platform.h"

namespace tv::windows {

/// Reads the curve at `path`, asking until the import has all it needs. Nothing when the user
/// cancels a question or the file cannot be read (its message, naming file and row, shown).
std::optional<compute::CurveImport> import_curve_asking(forms::Platform& platform, const std::string& path,
                                                        compute::CurveKind kind, compute::CurveImportOptions options);

/// What was read, as (name, text) pairs: "curve" (layout, points, columns), "case", "units"
/// (the conversion), "first point", "vertical steps"; the last three only when they apply.
std::vector<std::pair<std::string, std::string>> curve_facts(const compute::CurveImport& curve);

/// The facts in one line, "units: ...; first point: ...", for a window's caption.
std::string curve_facts_line(const compute::CurveImport& curve);

}  // namespace tv::windows
