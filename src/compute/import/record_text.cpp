#include "compute/import/record_text.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "text/number_text.h"

namespace tv::compute::import_detail {

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_blank(char c) { return c == ' ' || c == '\t'; }
bool is_exponent_letter(char c) { return c == 'E' || c == 'e' || c == 'D' || c == 'd'; }
bool is_filler(char c) { return c == ' ' || c == '\t' || c == '\0' || c == '\x1a'; }

// The power of ten p with |value| = 0.d... x 10^p, for a well-formed number text out of the
// double range: its sign tells overflow from underflow.
long magnitude(std::string_view text) {
    std::size_t e = 0;
    while (e < text.size() && !is_exponent_letter(text[e])) ++e;
    long exponent = 0;
    if (e < text.size()) {
        std::size_t i = e + 1;
        const bool negative = text[i] == '-';
        if (text[i] == '-' || text[i] == '+') ++i;
        for (; i < text.size(); ++i) exponent = std::min(exponent * 10 + (text[i] - '0'), 100000L);
        if (negative) exponent = -exponent;
    }
    std::string_view mantissa = text.substr(0, e);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    const long position = first < point ? static_cast<long>(point - first) : -static_cast<long>(first - point - 1);
    return position + exponent;
}

}  // namespace

SourceText::SourceText(std::string_view content) : bytes_(content.size()) {
    if (content.substr(0, 3) == "\xEF\xBB\xBF") content.remove_prefix(3);
    std::size_t start = 0;
    const std::size_t n = content.size();
    for (std::size_t i = 0; i < n; ++i) {
        const char c = content[i];
        if (c == '\n' || c == '\r') {
            lines_.push_back(content.substr(start, i - start));
            if (c == '\r' && i + 1 < n && content[i + 1] == '\n') ++i;
            start = i + 1;
        }
    }
    if (start < n) lines_.push_back(content.substr(start));
    while (!lines_.empty() && std::all_of(lines_.back().begin(), lines_.back().end(), is_filler)) lines_.pop_back();
}

void split_fields(std::string_view line, std::vector<std::string_view>& out) {
    out.clear();
    const std::size_t n = line.size();
    std::size_t i = 0;
    while (i < n) {
        while (i < n && is_blank(line[i])) ++i;
        if (i == n) break;
        const std::size_t start = i;
        ++i;
        while (i < n && !is_blank(line[i])) {
            const char c = line[i];
            if ((c == '-' || c == '+') && (is_digit(line[i - 1]) || line[i - 1] == '.')) break;
            ++i;
        }
        out.push_back(line.substr(start, i - start));
    }
}

std::size_t number_prefix(std::string_view text) {
    const std::size_t n = text.size();
    std::size_t i = 0;
    if (i < n && (text[i] == '-' || text[i] == '+')) ++i;
    std::size_t digits = 0;
    while (i < n && is_digit(text[i])) ++i, ++digits;
    if (i < n && text[i] == '.') {
        ++i;
        while (i < n && is_digit(text[i])) ++i, ++digits;
    }
    if (digits == 0) return 0;
    if (i < n && is_exponent_letter(text[i])) {
        std::size_t j = i + 1;
        if (j < n && (text[j] == '-' || text[j] == '+')) ++j;
        const std::size_t first = j;
        while (j < n && is_digit(text[j])) ++j;
        if (j > first) i = j;
    }
    return i;
}

namespace {

// Powers of ten that doubles hold exactly.
constexpr double kExactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// The general road: from_chars takes neither '+' nor a D exponent, so the text is cleaned first.
std::optional<double> read_cleaned(std::string_view text) {
    char small[64];
    std::string large;
    char* out = small;
    if (text.size() >= sizeof small) {
        large.resize(text.size());
        out = large.data();
    }
    char* p = out;
    for (char c : text) {
        if (c == '+') continue;
        *p++ = is_exponent_letter(c) ? 'e' : c;
    }
    double value = 0.0;
    const auto result = std::from_chars(out, p, value);
    if (result.ec == std::errc::result_out_of_range) {
        if (magnitude(text) > 0) return std::nullopt;
        return 0.0;
    }
    if (result.ec != std::errc() || result.ptr != p) return std::nullopt;
    return value;
}

}  // namespace

std::optional<double> read_number(std::string_view text) {
    // One pass checks the grammar and gathers the digits. Up to 19 significant digits and a
    // power of ten up to 22 give the correctly rounded value in one exact operation, the same
    // double as from_chars; anything else goes the general road.
    const std::size_t n = text.size();
    std::size_t i = 0;
    bool negative = false;
    if (i < n && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
    std::uint64_t mantissa = 0;
    int significant = 0, scale = 0;
    bool digits = false, overflowed = false;
    for (; i < n && is_digit(text[i]); ++i) {
        digits = true;
        if (mantissa == 0 && text[i] == '0') continue;
        if (significant < 19) {
            mantissa = mantissa * 10 + static_cast<std::uint64_t>(text[i] - '0');
            ++significant;
        } else {
            overflowed = true;
        }
    }
    if (i < n && text[i] == '.') {
        for (++i; i < n && is_digit(text[i]); ++i) {
            digits = true;
            if (mantissa == 0 && text[i] == '0') {
                --scale;
                continue;
            }
            if (significant < 19) {
                mantissa = mantissa * 10 + static_cast<std::uint64_t>(text[i] - '0');
                ++significant;
                --scale;
            } else {
                overflowed = true;
            }
        }
    }
    if (!digits) return std::nullopt;
    long exponent = 0;
    if (i < n && is_exponent_letter(text[i])) {
        ++i;
        bool exponent_negative = false;
        if (i < n && (text[i] == '-' || text[i] == '+')) exponent_negative = text[i++] == '-';
        const std::size_t first = i;
        for (; i < n && is_digit(text[i]); ++i) exponent = std::min(exponent * 10 + (text[i] - '0'), 100000L);
        if (i == first) return std::nullopt;
        if (exponent_negative) exponent = -exponent;
    }
    if (i != n) return std::nullopt;
    if (mantissa == 0) return 0.0;  // no negative zero
    const long power = exponent + scale;
    if (!overflowed && mantissa <= (std::uint64_t{1} << 53) && power >= -22 && power <= 22) {
        const double m = static_cast<double>(mantissa);
        const double value = power < 0 ? m / kExactPowers[-power] : m * kExactPowers[power];
        return negative ? -value : value;
    }
    std::optional<double> value = read_cleaned(text);
    if (value && *value == 0.0) value = 0.0;
    return value;
}

bool is_integer_text(std::string_view text) {
    std::size_t i = 0;
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) i = 1;
    if (i == text.size()) return false;
    for (; i < text.size(); ++i)
        if (!is_digit(text[i])) return false;
    return true;
}

std::string divided_by_ten(std::string_view number) {
    std::size_t e = 0;
    while (e < number.size() && !is_exponent_letter(number[e])) ++e;
    if (e < number.size()) {
        std::size_t i = e + 1;
        const bool signed_exponent = number[i] == '-' || number[i] == '+';
        const bool negative = number[i] == '-';
        if (signed_exponent) ++i;
        const std::size_t width = number.size() - i;
        long exponent = 0;
        for (std::size_t k = i; k < number.size(); ++k) exponent = std::min(exponent * 10 + (number[k] - '0'), 100000L);
        if (negative) exponent = -exponent;
        --exponent;
        char digits[24];
        const auto written = std::to_chars(digits, digits + sizeof digits, exponent < 0 ? -exponent : exponent);
        const std::size_t count = static_cast<std::size_t>(written.ptr - digits);
        std::string out;
        out.reserve(e + 3 + std::max(width, count));
        out.append(number.substr(0, e + 1));
        if (exponent < 0)
            out += '-';
        else if (signed_exponent)
            out += '+';
        if (count < width) out.append(width - count, '0');
        out.append(digits, count);
        return out;
    }
    std::size_t i = 0;
    std::string out;
    if (number[0] == '-' || number[0] == '+') out += number[i++];
    const std::size_t point = number.find('.');
    std::string_view whole = number.substr(i, (point == std::string_view::npos ? number.size() : point) - i);
    std::string_view fraction = point == std::string_view::npos ? std::string_view() : number.substr(point + 1);
    if (whole.size() >= 2) {
        out.append(whole.substr(0, whole.size() - 1));
        out += '.';
        out += whole.back();
        out.append(fraction);
    } else {
        out += "0.";
        if (whole.empty())
            out += '0';
        else
            out += whole;
        out.append(fraction);
    }
    return out;
}

std::string_view trim(std::string_view text) {
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
    return text;
}

std::string squeeze(std::string_view text) {
    text = trim(text);
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = is_blank(text[i]) ? ' ' : text[i];
        if (c == ' ' && !out.empty() && out.back() == ' ') continue;
        out += c;
    }
    return out;
}

std::string upper(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return out;
}

std::string number_text(double value) { return text::to_text(value); }

namespace {

std::size_t find_in_any_case(std::string_view line, std::string_view key) {
    if (key.empty() || line.size() < key.size()) return std::string_view::npos;
    auto same = [](char a, char b) {
        if (a >= 'a' && a <= 'z') a = static_cast<char>(a - 'a' + 'A');
        if (b >= 'a' && b <= 'z') b = static_cast<char>(b - 'a' + 'A');
        return a == b;
    };
    for (std::size_t p = 0; p + key.size() <= line.size(); ++p) {
        std::size_t k = 0;
        while (k < key.size() && same(line[p + k], key[k])) ++k;
        if (k == key.size()) return p;
    }
    return std::string_view::npos;
}

}  // namespace

std::optional<std::string_view> number_after(std::string_view line, std::string_view key) {
    const std::size_t at = find_in_any_case(line, key);
    if (at == std::string_view::npos) return std::nullopt;
    std::size_t i = at + key.size();
    while (i < line.size() && is_blank(line[i])) ++i;
    if (i < line.size() && (line[i] == '=' || line[i] == ':')) ++i;
    while (i < line.size() && is_blank(line[i])) ++i;
    const std::size_t length = number_prefix(line.substr(i));
    if (length == 0) return std::nullopt;
    return line.substr(i, length);
}

bool contains(std::string_view line, std::string_view key) {
    return find_in_any_case(line, key) != std::string_view::npos;
}

bool starts_with_key(std::string_view line, std::string_view key) {
    line = trim(line);
    return line.size() >= key.size() && find_in_any_case(line.substr(0, key.size()), key) == 0;
}

bool is_numeric_line(std::string_view line, std::size_t at_least, std::vector<std::string_view>& scratch) {
    split_fields(line, scratch);
    if (scratch.empty() || scratch.size() < at_least) return false;
    for (std::string_view field : scratch)
        if (!read_number(field)) return false;
    return true;
}

ComponentBuilder::ComponentBuilder(const SourceText& source, std::size_t header_first, std::size_t header_last,
                                   std::size_t expected_samples) {
    component_.source_line = static_cast<std::int64_t>(header_first);
    const std::size_t header = header_last >= header_first ? header_last - header_first + 1 : 0;
    component_.lines.reserve(header + expected_samples);
    component_.samples.reserve(expected_samples);
    for (std::size_t k = 0; k < header; ++k) component_.lines.emplace_back(source.line(header_first + k));
    component_.header_lines = static_cast<std::int32_t>(header);
}

bool ComponentBuilder::add(std::string_view number, const Scale& scale) {
    // A tenth is read from its own text; the others from the file's.
    const std::optional<double> value =
        scale.kind == Scale::Kind::divide_by_ten
            ? (number_prefix(number) == number.size() && !number.empty() ? std::optional<double>(0.0) : std::nullopt)
            : read_number(number);
    if (!value) return false;
    switch (scale.kind) {
        case Scale::Kind::none:
            component_.lines.emplace_back(number);
            component_.samples.push_back(*value);
            break;
        case Scale::Kind::divide_by_ten: {
            std::string shifted = divided_by_ten(number);
            const std::optional<double> tenth = read_number(shifted);
            if (!tenth) return false;
            component_.samples.push_back(*tenth);
            component_.lines.push_back(std::move(shifted));
            break;
        }
        case Scale::Kind::divide:
            add_value(*value / scale.divisor);
            break;
    }
    return true;
}

std::size_t ComponentBuilder::add_lines(const SourceText& source, std::size_t first, bool (*ends)(std::string_view),
                                       const Scale& scale, std::optional<Failure>& failure, const double* null) {
    std::vector<std::string_view> fields;
    std::size_t i = first;
    for (; i <= source.size() && !(ends && ends(source.line(i))); ++i) {
        split_fields(source.line(i), fields);
        for (std::string_view f : fields) {
            if (null && read_number(f) == *null) {
                failure = Failure{static_cast<std::int64_t>(i),
                                  "a null value (" + std::string(f) + ") where a sample was expected"};
                return i;
            }
            if (!add(f, scale)) {
                failure = not_a_number(static_cast<std::int64_t>(i), f, "a sample");
                return i;
            }
        }
    }
    return i;
}

RecordComponent ComponentBuilder::finish(ComponentFacts facts) {
    component_.name = std::move(facts.name);
    component_.time_step = facts.time_step;
    component_.time_step_source = std::move(facts.time_step_source);
    component_.declared_points = facts.declared_points;
    component_.units = std::move(facts.units);
    component_.conversion = std::move(facts.conversion);
    return std::move(component_);
}

std::size_t next_content_line(const SourceText& source, std::size_t from) {
    while (from <= source.size() && trim(source.line(from)).empty()) ++from;
    return from;
}

Outcome one_component(RecordComponent component) {
    Outcome out;
    out.components.push_back(std::move(component));
    return out;
}

void ComponentBuilder::add_value(double g) {
    std::string written = text::to_text(g);
    component_.samples.push_back(read_number(written).value_or(g));
    component_.lines.push_back(std::move(written));
}

Failure count_mismatch(std::int64_t header_line, std::string_view what, std::int64_t declared, std::int64_t read,
                       std::string_view component) {
    std::string reason;
    if (!component.empty()) reason = "component " + std::string(component) + ": ";
    reason += std::string(what) + " declares " + std::to_string(declared) + " points, the file holds " +
              std::to_string(read);
    return Failure{header_line, std::move(reason)};
}

std::optional<Failure> not_acceleration(std::int64_t number, std::string_view line) {
    const char* what = contains(line, "VELOC") ? "velocities" : contains(line, "DISPL") ? "displacements" : nullptr;
    if (!what) return std::nullopt;
    return Failure{number, "the file holds " + std::string(what) + " (\"" + squeeze(line) +
                               "\"); a record holds accelerations"};
}

Failure not_a_number(std::int64_t line, std::string_view field, std::string_view expected) {
    std::string shown;
    for (char c : field.substr(0, 40)) shown += (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) ? '?' : c;
    if (field.size() > 40) shown += "...";
    return Failure{line, "\"" + shown + "\" is not a number; " + std::string(expected) + " was expected"};
}

}  // namespace tv::compute::import_detail
