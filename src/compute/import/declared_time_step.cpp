#include "compute/import/declared_time_step.h"

#include <cmath>

#include "compute/import/record_text.h"
#include "text/number_text.h"

namespace tv::compute {

namespace {

using import_detail::number_prefix;
using import_detail::read_number;

bool is_word_char(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

bool is_separator(char c) { return c == ' ' || c == '\t' || c == ','; }

std::size_t skip_blanks(std::string_view s, std::size_t i) {
    while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
    return i;
}

struct Keyed {
    std::size_t key = std::string_view::npos;  // where the key starts
    std::size_t value = 0;                     // where its value starts
};

// `KEY =` in the upper-cased line, the key a word of its own.
Keyed keyed_value(std::string_view upper_line, std::string_view key) {
    for (std::size_t p = upper_line.find(key); p != std::string_view::npos; p = upper_line.find(key, p + 1)) {
        if (p > 0 && is_word_char(upper_line[p - 1])) continue;
        std::size_t i = skip_blanks(upper_line, p + key.size());
        if (i < upper_line.size() && upper_line[i] == '=') return Keyed{p, skip_blanks(upper_line, i + 1)};
    }
    return Keyed{};
}

std::optional<DeclaredTimeStep> numbers_first(std::string_view line) {
    std::string_view words[4];
    std::size_t count = 0, i = 0;
    while (count < 4) {
        while (i < line.size() && is_separator(line[i])) ++i;
        if (i == line.size()) return std::nullopt;
        const std::size_t start = i;
        while (i < line.size() && !is_separator(line[i])) ++i;
        words[count++] = line.substr(start, i - start);
    }
    if (import_detail::upper(words[2]) != "NPTS" || import_detail::upper(words[3]) != "DT") return std::nullopt;
    if (!import_detail::is_integer_text(words[0]) || words[0][0] == '-') return std::nullopt;
    const std::optional<double> points = read_number(words[0]);
    const std::optional<double> step = read_number(words[1]);
    if (!points || !step || !(*step > 0.0) || *points > 1e15) return std::nullopt;
    DeclaredTimeStep out;
    out.time_step = *step;
    out.points = static_cast<std::int64_t>(*points);
    out.text = std::string(import_detail::trim(line));
    return out;
}

}  // namespace

std::optional<DeclaredTimeStep> parse_time_step_declaration(std::string_view line) {
    std::optional<DeclaredTimeStep> out = numbers_first(line);
    if (!out) {
        const std::string upper_line = import_detail::upper(line);
        const Keyed dt = keyed_value(upper_line, "DT");
        if (dt.key == std::string_view::npos) return std::nullopt;
        const std::size_t at = dt.value;
        const std::size_t length = number_prefix(std::string_view(line).substr(at));
        if (length == 0) return std::nullopt;
        const std::optional<double> step = read_number(line.substr(at, length));
        if (!step || !(*step > 0.0)) return std::nullopt;
        std::size_t end = at + length;
        const std::size_t unit = skip_blanks(upper_line, end);
        if (std::string_view(upper_line).substr(unit, 3) == "SEC") end = unit + 3;
        out = DeclaredTimeStep{};
        out->time_step = *step;
        out->text = std::string(line.substr(dt.key, end - dt.key));
        const Keyed npts = keyed_value(upper_line, "NPTS");
        if (npts.key != std::string_view::npos) {
            const std::size_t points_at = npts.value;
            std::size_t digits = 0;
            while (points_at + digits < line.size() && digits < 15 && line[points_at + digits] >= '0' &&
                   line[points_at + digits] <= '9')
                ++digits;
            if (digits > 0) out->points = static_cast<std::int64_t>(*read_number(line.substr(points_at, digits)));
        }
    }
    // The box holds 15 significant digits; steps near the top of the double range are left alone.
    if (out->time_step < 1e300) out->time_step = text::round15(out->time_step);
    return out;
}

std::optional<DeclaredTimeStep> find_declared_time_step(const std::vector<std::string>& lines,
                                                        std::int32_t first_data_line) {
    for (std::int32_t i = 1; i < first_data_line && static_cast<std::size_t>(i) <= lines.size(); ++i) {
        std::optional<DeclaredTimeStep> found = parse_time_step_declaration(lines[static_cast<std::size_t>(i - 1)]);
        if (found) {
            found->line = i;
            return found;
        }
    }
    return std::nullopt;
}

}  // namespace tv::compute
