#include "cli/curve_options.h"

#include "text/number_text.h"
#include "windows/files/curve_questions.h"

namespace tv::cli {

const char* kCurveOptionsUsage =
    "  Curves exported by structural programs (table exports with a TABLE: title, a heading and\n"
    "  a units row; two-column lists; Sd-Sa lists) are read by their headings and converted:\n"
    "  --case NAME            the load case of a table holding several\n"
    "  --columns D,F          the displacement (Sd) and force (Sa) columns by number, from 1\n"
    "  --units LENGTH[,FORCE] the file's units when it states none (mm cm m in ft; N kN kgf\n"
    "                         tonf lb kip; g for Sa)\n"
    "  --system kgf-cm|kgf-mm|tonf-m   units to convert to (default kgf-cm)\n"
    "  --shift yes|no         move a first point off the origin to (0, 0) (default yes)\n"
    "  A file in the program's own layout is read as before, unless --case, --columns or\n"
    "  --units sends it through the import.\n";

bool curve_options_given(const ParsedOptions& o) { return o.get("case") || o.get("columns") || o.get("units"); }

std::optional<compute::CurveImportOptions> curve_options(const ParsedOptions& o, compute::UnitSystem system,
                                                         std::string& why) {
    compute::CurveImportOptions options;
    options.system = system;
    if (auto v = o.get("case")) options.case_name = *v;
    if (auto v = o.get("columns")) {
        auto columns = split_list(*v);
        auto number = [](const std::string& t) {
            const double d = text::val(t);
            return d >= 1 && d <= compute::kMaxCurveColumns && d == static_cast<int>(d) ? static_cast<int>(d) : 0;
        };
        if (columns.size() != 2 || number(columns[0]) == 0 || number(columns[1]) == 0) {
            why = "--columns takes D,F: two column numbers from 1";
            return std::nullopt;
        }
        options.displacement_column = number(columns[0]);
        options.force_column = number(columns[1]);
    }
    if (auto v = o.get("units")) {
        auto units = split_list(*v);
        if (units.empty() || units.size() > 2 || units[0].empty()) {
            why = "--units takes LENGTH[,FORCE]";
            return std::nullopt;
        }
        options.length_unit = units[0];
        if (units.size() == 2) options.force_unit = units[1];
    }
    if (auto v = o.get("system")) {
        auto s = compute::parse_unit_system(*v);
        if (!s) {
            why = "--system takes one of kgf-cm kgf-mm tonf-m";
            return std::nullopt;
        }
        options.system = *s;
    }
    if (auto v = o.get("shift")) {
        if (*v != "yes" && *v != "no") {
            why = "--shift takes yes or no";
            return std::nullopt;
        }
        options.shift_to_origin = *v == "yes";
    } else {
        options.shift_to_origin = true;  // the question a window asks, answered Yes
    }
    return options;
}

compute::CurveImport import_or_exit(Session& s, const std::string& command, const std::string& file,
                                    compute::CurveKind kind, const compute::CurveImportOptions& options) {
    compute::CurveImport curve = compute::import_curve(file, kind, options);
    const std::string lead = "tremorvault-cli " + command + ": ";
    if (curve.error) {
        s.err << lead << curve.error->message() << '\n';
        throw Exit{kFailed};
    }
    if (curve.needs_case) {
        std::string list;
        for (const auto& c : curve.cases) list += (list.empty() ? "" : ", ") + c;
        s.err << lead << file << ": several load cases (" << list << "); choose one with --case\n";
        throw Exit{kFailed};
    }
    if (curve.needs_columns) {
        std::string list;
        for (std::size_t c = 0; c < curve.headings.size(); ++c)
            list += (c ? ", " : "") + std::to_string(c + 1) + " \"" + curve.headings[c] + "\"";
        s.err << lead << file << ": the headings do not say which column is which (" << list
              << "); choose them with --columns\n";
        throw Exit{kFailed};
    }
    for (const auto& [name, said] : windows::curve_facts(curve)) s.print(name, said);
    return curve;
}

}  // namespace tv::cli
