#include "windows/files/curve_questions.h"

#include "text/number_text.h"

namespace tv::windows {

namespace {

const char* kTitle = "Curve import";

// Asks for one column; its number from 1, or 0 when cancelled.
int ask_column(forms::Platform& platform, const std::string& what, const std::vector<std::string>& headings) {
    std::vector<std::string> items;
    for (std::size_t c = 0; c < headings.size(); ++c)
        items.push_back(std::to_string(c + 1) + (headings[c].empty() ? std::string() : "  \"" + headings[c] + "\""));
    auto chosen = platform.choose_item("The headings do not say which column is which.\nWhich column holds the " + what + "?",
                                       kTitle, items, -1);
    return chosen ? *chosen + 1 : 0;
}

// Asks for a unit among `units`; the first item keeps the numbers as they stand.
std::optional<std::string> ask_unit(forms::Platform& platform, const std::string& prompt, const std::string& target,
                                    const std::vector<std::string>& units) {
    std::vector<std::string> items{target + " (as the numbers stand)"};
    for (const auto& u : units)
        if (u != target) items.push_back(u);
    auto chosen = platform.choose_item(prompt, kTitle, items, -1);
    if (!chosen) return std::nullopt;
    return *chosen == 0 ? target : items[static_cast<std::size_t>(*chosen)];
}

}  // namespace

std::optional<compute::CurveImport> import_curve_asking(forms::Platform& platform, const std::string& path,
                                                        compute::CurveKind kind, compute::CurveImportOptions options) {
    bool units_asked = !options.length_unit.empty();
    bool shift_asked = options.shift_to_origin;
    // Each round settles one question at least; a few rounds cover them all.
    for (int round = 0; round < 8; ++round) {
        compute::CurveImport curve = compute::import_curve(path, kind, options);
        if (curve.error) {
            platform.message_box(curve.error->message(), forms::MsgButtons::Ok, "Error", forms::MsgIcon::Critical);
            return std::nullopt;
        }
        if (curve.needs_case) {
            auto chosen = platform.choose_item(path + " holds several load cases.\nWhich one is the pushover curve?",
                                               kTitle, curve.cases, -1);
            if (!chosen || static_cast<std::size_t>(*chosen) >= curve.cases.size()) return std::nullopt;
            options.case_name = curve.cases[static_cast<std::size_t>(*chosen)];
            continue;
        }
        if (curve.needs_columns) {
            const bool spectral = kind == compute::CurveKind::spectral;
            options.displacement_column = ask_column(platform, spectral ? "Sd" : "displacement", curve.headings);
            if (options.displacement_column == 0) return std::nullopt;
            options.force_column = ask_column(platform, spectral ? "Sa" : "base force", curve.headings);
            if (options.force_column == 0) return std::nullopt;
            continue;
        }
        const bool force_unstated = kind == compute::CurveKind::pushover && curve.force_unit.empty();
        if (!units_asked && (curve.length_unit.empty() || force_unstated)) {
            units_asked = true;
            const std::string length_target = compute::unit_system_length(options.system);
            auto length = curve.length_unit.empty()
                              ? ask_unit(platform, "The file does not state its units.\nLength unit of the displacements?",
                                         length_target, {"mm", "cm", "m", "in", "ft"})
                              : std::optional<std::string>(curve.length_unit);
            if (!length) return std::nullopt;
            options.length_unit = *length;
            if (force_unstated) {
                auto force = ask_unit(platform, "The file does not state its units.\nForce unit of the base forces?",
                                      compute::unit_system_force(options.system), {"N", "kN", "kgf", "tonf", "lb", "kip"});
                if (!force) return std::nullopt;
                options.force_unit = *force;
            }
            continue;
        }
        if (curve.first_point_off_origin && !shift_asked) {
            shift_asked = true;
            const bool spectral = kind == compute::CurveKind::spectral;
            const std::string length = compute::unit_system_length(options.system);
            const std::string force = spectral ? "g" : compute::unit_system_force(options.system);
            const auto answer = platform.message_box(
                "The curve starts at " + std::string(spectral ? "Sd = " : "a displacement of ") +
                    text::to_text(curve.first_point.displacement) + " " + length +
                    (spectral ? " and Sa = " : " and a force of ") + text::to_text(curve.first_point.force) + " " +
                    force + ", not at (0, 0).\n"
                    "Shift the curve so that it starts at (0, 0)?",
                forms::MsgButtons::YesNo, kTitle, forms::MsgIcon::Question);
            if (answer == forms::MsgResult::Yes) {
                options.shift_to_origin = true;
                continue;
            }
        }
        return curve;
    }
    return std::nullopt;
}

std::vector<std::pair<std::string, std::string>> curve_facts(const compute::CurveImport& curve) {
    std::vector<std::pair<std::string, std::string>> facts;
    const bool row_wise = curve.layout.rfind("row-wise", 0) == 0;
    facts.emplace_back("curve", curve.layout + ", " + std::to_string(curve.points.size()) + " points, " +
                                    (row_wise ? "rows " : "columns ") + std::to_string(curve.displacement_column) +
                                    " and " + std::to_string(curve.force_column));
    if (!curve.case_name.empty()) facts.emplace_back("case", curve.case_name);
    facts.emplace_back("units", curve.conversion);
    if (curve.first_point_off_origin) {
        const std::string point =
            "(" + text::to_text(curve.first_point.displacement) + ", " + text::to_text(curve.first_point.force) + ")";
        facts.emplace_back("first point", curve.shifted ? point + ", curve shifted to start at (0, 0)" : point + ", kept");
    }
    if (curve.vertical_steps > 0) facts.emplace_back("vertical steps", std::to_string(curve.vertical_steps) + ", kept");
    return facts;
}

std::string curve_facts_line(const compute::CurveImport& curve) {
    std::string line;
    for (const auto& [name, said] : curve_facts(curve)) {
        if (name == "curve") continue;  // the table itself shows the points
        line += (line.empty() ? "" : "; ") + name + ": " + said;
    }
    return line;
}

}  // namespace tv::windows
