// Two-column text: optional header lines, then a time and a value per line, separated by a
// comma, a semicolon, a tab or blanks; a decimal comma is taken when no line of the data holds
// a point and the fields are separated otherwise.
#include "compute/import/record_layouts.h"

#include <cmath>

#include "text/number_text.h"
#include "text/rounding.h"

namespace tv::compute::import_detail {

namespace {

constexpr std::size_t kProbe = 20;         // data lines looked at to tell the layout
constexpr double kStepTolerance = 0.01;   // a step may differ from the first by 1 % (rounded times)

bool is_digit(char c) { return c >= '0' && c <= '9'; }

struct Style {
    bool decimal_comma = false;
    bool single_decimal_comma = false;  // "0,0123" alone on its lines: one number, the window's own
};

// The fields of a line in the file's style; decimal commas become points.
void split_pair(std::string_view line, const Style& style, std::vector<std::string>& out) {
    out.clear();
    std::string field;
    for (char c : line) {
        const bool separator = c == ' ' || c == '\t' || c == ';' || (c == ',' && !style.decimal_comma);
        if (separator) {
            if (!field.empty()) out.push_back(std::move(field));
            field.clear();
        } else {
            field += c == ',' ? '.' : c;
        }
    }
    if (!field.empty()) out.push_back(std::move(field));
}

bool is_pair(std::string_view line, const Style& style, std::vector<std::string>& scratch) {
    split_pair(line, style, scratch);
    return scratch.size() == 2 && read_number(scratch[0]) && read_number(scratch[1]);
}

bool is_data(std::string_view line, const Style& style, std::vector<std::string>& scratch) {
    split_pair(line, style, scratch);
    if (scratch.empty()) return false;
    for (const std::string& f : scratch)
        if (!read_number(f)) return false;
    return true;
}

// A decimal comma: "0,005;0,0123", "0,005<tab>0,0123", "0,005 0,0123".
Style style_of(const SourceText& source) {
    bool point = false, comma = false, other = true;
    std::size_t looked = 0;
    for (std::size_t i = source.size(); i >= 1 && looked < kProbe; --i) {
        const std::string_view line = trim(source.line(i));
        if (line.empty()) continue;
        ++looked;
        point = point || line.find('.') != std::string_view::npos;
        for (std::size_t k = 1; k + 1 < line.size(); ++k)
            comma = comma || (line[k] == ',' && is_digit(line[k - 1]) && is_digit(line[k + 1]));
        other = other && line.find_first_of(" \t;") != std::string_view::npos;
    }
    return Style{!point && comma && other, !point && comma && !other};
}

// The first line of the data: the first line that reads as numbers.
std::size_t data_start(const SourceText& source, const Style& style) {
    std::vector<std::string> scratch;
    for (std::size_t i = 1; i <= source.size(); ++i)
        if (is_data(source.line(i), style, scratch)) return i;
    return 0;
}

// Decimals written after the point of a time ("0.005" 3); -1 with an exponent.
int decimals_of(std::string_view number) {
    if (number.find_first_of("EeDd") != std::string_view::npos) return -1;
    const std::size_t point = number.find('.');
    return point == std::string_view::npos ? 0 : static_cast<int>(number.size() - point - 1);
}

std::string units_of(const SourceText& source, std::size_t header_last, Scale& scale, std::string& conversion) {
    for (std::size_t i = 1; i <= header_last; ++i) {
        const std::string u = upper(source.line(i));
        for (const char* gal : {"CM/S^2", "CM/S2", "CM/S/S", "CM/SEC/SEC", "CM/SEC2", "CM/SEC^2", "GAL)", "(GAL"}) {
            if (u.find(gal) != std::string::npos) {
                scale = Scale{Scale::Kind::divide, kGravityGal};
                conversion = "cm/s^2 to g: divided by 980.665 (units named in line " + std::to_string(i) + ")";
                return "cm/s^2";
            }
        }
        for (const char* metre : {"(M/S^2", "(M/S2", "(M/S/S", " M/S^2", " M/S2", " M/S/S"}) {
            if (u.find(metre) != std::string::npos) {
                scale = Scale{Scale::Kind::divide, kGravityGal / 100.0};
                conversion = "m/s^2 to g: divided by 9.80665 (units named in line " + std::to_string(i) + ")";
                return "m/s^2";
            }
        }
    }
    conversion = "none (no units named: values taken as g)";
    return "G";
}

}  // namespace

bool looks_like_two_column(const SourceText& source) {
    const Style style = style_of(source);
    if (style.single_decimal_comma) return false;
    const std::size_t start = data_start(source, style);
    if (start == 0) return false;
    std::vector<std::string> scratch;
    std::size_t pairs = 0;
    for (std::size_t i = start; i <= source.size() && pairs < kProbe; ++i) {
        if (trim(source.line(i)).empty()) continue;
        if (!is_pair(source.line(i), style, scratch)) return false;
        ++pairs;
    }
    return pairs >= 2;
}

Outcome read_two_column(const SourceText& source) {
    const Style style = style_of(source);
    const std::size_t start = data_start(source, style);
    if (start == 0) return fail(1, "expected lines holding a time and a value");
    Scale scale;
    std::string conversion;
    const std::string units = units_of(source, start - 1, scale, conversion);

    ComponentBuilder b(source, 1, start - 1, 0);
    std::vector<std::string> fields;
    double first_time = 0.0, previous_time = 0.0, step = 0.0;
    std::size_t first_line = 0, second_line = 0;
    std::string first_time_text;
    for (std::size_t i = start; i <= source.size(); ++i) {
        if (trim(source.line(i)).empty()) continue;
        split_pair(source.line(i), style, fields);
        const auto at = static_cast<std::int64_t>(i);
        for (const std::string& f : fields)
            if (!read_number(f)) return fail(not_a_number(at, f, "a time or a value"));
        if (fields.size() != 2) return fail(at, "expected a time and a value, found " + std::to_string(fields.size()) +
                                                    " numbers");
        const double time = *read_number(fields[0]);
        if (b.count() == 0) {
            first_time = time;
            first_line = i;
            first_time_text = fields[0];
        } else if (b.count() == 1) {
            second_line = i;
            // The step as written: rounded to the decimals the times carry.
            const int decimals = std::max(decimals_of(first_time_text), decimals_of(fields[0]));
            const double difference = time - first_time;
            step = decimals >= 0 && decimals <= 15 ? text::round_to(difference, decimals)
                                                   : (std::fabs(difference) < 1e300 ? text::round15(difference) : 0.0);
            if (!(step > 0.0))
                return fail(at, "expected times that increase by an even step; " + fields[0] + " follows " +
                                    first_time_text);
        } else if (!(std::fabs(time - previous_time - step) <= kStepTolerance * step)) {
            return fail(at, "expected the time " + number_text(previous_time + step) + " (an even step of " +
                                number_text(step) + " s), found " + fields[0]);
        }
        previous_time = time;
        b.add(fields[1], scale);
    }
    if (b.count() < 2) return fail(static_cast<std::int64_t>(start), "expected at least two lines of time and value");
    return one_component(b.finish({"", step,
                                   "the time column, lines " + std::to_string(first_line) + " and " +
                                       std::to_string(second_line),
                                   -1, units, conversion}));
}

}  // namespace tv::compute::import_detail
