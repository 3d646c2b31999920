// COSMOS V2: per channel the text header ("(Format v01.20 with 13 text lines)"), the integer
// and real headers and the comments, each announced with its count, then the data block whose
// line states the points, units and Fortran format ("42000 acceleration pts, approx 210 secs,
// units=cm/sec2(04),Format=(1E15.6)"), ended by "End-of-data".
#include "compute/import/record_layouts.h"

#include "text/number_text.h"

namespace tv::compute::import_detail {

namespace {

constexpr std::size_t kStepIndex = 61;  // real header value 62: the sampling interval, ms
constexpr double kLargestCount = 1e9;   // of lines or values a header may announce

struct Announced {
    std::size_t count = 0;  // values or lines announced
    std::size_t lines = 0;  // lines they take
};

// " 100 Integer-header values follow on  10 lines, Format= (10I8)"
std::optional<Announced> announced(std::string_view line, std::string_view key, bool with_lines) {
    if (!contains(line, key)) return std::nullopt;
    std::vector<std::string_view> fields;
    split_fields(line, fields);
    const double count = fields.empty() || !is_integer_text(fields[0]) ? -1.0 : read_number(fields[0]).value_or(-1.0);
    const std::optional<std::string_view> lines = number_after(line, "follow on");
    const double taken = with_lines ? (lines ? read_number(*lines).value_or(-1.0) : -1.0) : count;
    if (count < 0 || count > kLargestCount || taken < 0 || taken > kLargestCount) return std::nullopt;
    return Announced{static_cast<std::size_t>(count), static_cast<std::size_t>(taken)};
}

struct FortranFormat {
    std::size_t per_line = 1;
    std::size_t width = 0;
};

// "Format=(1E15.6)", "Format=(8F10.5)"
std::optional<FortranFormat> data_format(std::string_view line) {
    const std::string u = upper(line);
    std::size_t i = u.find("FORMAT=");
    if (i == std::string::npos) return std::nullopt;
    i = u.find('(', i);
    if (i == std::string::npos) return std::nullopt;
    ++i;
    FortranFormat f;
    std::size_t n = 0, digits = 0;
    for (; i < u.size() && u[i] >= '0' && u[i] <= '9' && digits < 4; ++i, ++digits) n = n * 10 + (u[i] - '0');
    if (digits > 0) f.per_line = n;
    if (i == u.size() || (u[i] != 'E' && u[i] != 'F' && u[i] != 'G' && u[i] != 'D')) return std::nullopt;
    n = 0, digits = 0;
    for (++i; i < u.size() && u[i] >= '0' && u[i] <= '9' && digits < 4; ++i, ++digits) n = n * 10 + (u[i] - '0');
    f.width = n;
    if (f.per_line == 0 || f.width == 0) return std::nullopt;
    return f;
}

// "units=cm/sec2(04)": the unit text and its code.
Scale units_scale(std::string_view line, std::string& units, std::string& conversion, bool& known) {
    const std::string u = upper(line);
    const std::size_t at = u.find("UNITS=");
    known = false;
    if (at == std::string::npos) return {};
    std::size_t end = at + 6;
    while (end < u.size() && u[end] != '(' && u[end] != ',') ++end;
    units = std::string(trim(line.substr(at + 6, end - at - 6)));
    const std::string code = end < u.size() && u[end] == '(' ? u.substr(end + 1, 2) : std::string();
    const std::string name = upper(units);
    known = true;
    if (code == "04" || code == "10" || name == "CM/SEC2" || name == "CM/S/S" || name == "CM/S2" ||
        name == "CM/S^2" || name == "GAL") {
        conversion = "cm/s^2 to g: divided by 980.665";
        return Scale{Scale::Kind::divide, kGravityGal};
    }
    if (code == "02" || name == "G") {
        conversion = "none (the file is in g)";
        return {};
    }
    known = false;
    return {};
}

std::string channel_name(std::string_view station_line, std::string_view end_line) {
    std::string name;
    if (starts_with_key(station_line, "Sta Chan")) {
        std::string_view rest = trim(station_line).substr(8);
        const std::size_t recorder = upper(rest).find("(RCRDR");
        name = squeeze(rest.substr(0, recorder));
    }
    if (!name.empty() && name[0] != '?') return name;
    // "End-of-data for ChanBNZ acceleration"
    const std::size_t at = upper(end_line).find(" FOR ");
    if (at == std::string::npos) return name;
    std::vector<std::string_view> words;
    split_fields(end_line.substr(at + 5), words);
    if (words.empty()) return name;
    std::string_view word = words[0];
    if (upper(word.substr(0, 4)) == "CHAN" && word.size() > 4) word.remove_prefix(4);
    return std::string(word);
}

}  // namespace

bool looks_like_cosmos_v2(const SourceText& source) {
    if (!contains(source.line(1), "(Format v")) return false;
    for (std::size_t i = 2; i <= 40 && i <= source.size(); ++i)
        if (contains(source.line(i), "Integer-header values follow")) return true;
    return false;
}

Outcome read_cosmos_v2(const SourceText& source) {
    Outcome out;
    std::vector<std::string_view> fields;
    for (std::size_t s = next_content_line(source, 1); s <= source.size();) {
        const std::optional<std::string_view> text_lines = number_after(source.line(s), "with");
        const double text_count = text_lines ? read_number(*text_lines).value_or(0.0) : 0.0;
        if (!contains(source.line(s), "(Format v") || !(text_count >= 1) || text_count > 1000)
            return fail(static_cast<std::int64_t>(s), "expected \"(Format v<version> with <n> text lines)\"");
        std::size_t at = s + static_cast<std::size_t>(text_count);
        const std::optional<Announced> integers = announced(source.line(at), "Integer-header values follow", true);
        if (!integers)
            return fail(static_cast<std::int64_t>(at), "expected \"<n> Integer-header values follow on <n> lines\"");
        at += integers->lines + 1;
        const std::optional<Announced> reals = announced(source.line(at), "Real-header values follow", true);
        if (!reals)
            return fail(static_cast<std::int64_t>(at), "expected \"<n> Real-header values follow on <n> lines\"");
        std::optional<double> step_ms;
        std::size_t step_line = 0, index = 0;
        for (std::size_t k = at + 1; k <= at + reals->lines; ++k) {
            split_fields(source.line(k), fields);
            for (std::string_view f : fields) {
                const std::optional<double> v = read_number(f);
                if (!v) return fail(not_a_number(static_cast<std::int64_t>(k), f, "a real of the header"));
                if (index++ == kStepIndex) {
                    step_ms = v;
                    step_line = k;
                }
            }
        }
        if (!step_ms || !(*step_ms > 0.0) || *step_ms > 1e15)
            return fail(static_cast<std::int64_t>(step_line ? step_line : at),
                        "expected the sampling interval in ms as real header value 62");
        at += reals->lines + 1;
        const std::optional<Announced> comments = announced(source.line(at), "Comment line", false);
        if (!comments) return fail(static_cast<std::int64_t>(at), "expected \"<n> Comment line(s) follow\"");
        at += comments->lines + 1;

        const std::string_view head = source.line(at);
        split_fields(head, fields);
        if (fields.size() < 2 || !is_integer_text(fields[0]) || fields[0].size() > 15 || !contains(head, "pts"))
            return fail(static_cast<std::int64_t>(at),
                        "expected \"<points> acceleration pts, approx <n> secs, units=<units>,Format=(<format>)\"");
        if (auto refused = not_acceleration(static_cast<std::int64_t>(at), head)) return fail(std::move(*refused));
        const auto declared = static_cast<std::int64_t>(*read_number(fields[0]));
        std::string units, conversion;
        bool known = false;
        const Scale scale = units_scale(head, units, conversion, known);
        if (!known)
            return fail(static_cast<std::int64_t>(at), "expected the units \"units=cm/sec2(04)\" or \"units=g(02)\"");
        const std::optional<FortranFormat> format = data_format(head);
        if (!format)
            return fail(static_cast<std::int64_t>(at), "expected the data format \"Format=(<n>E<width>.<d>)\"");

        ComponentBuilder b(source, s, at, reserve_cap(declared, source.bytes()));
        std::size_t i = at + 1;
        for (; i <= source.size() && !starts_with_key(source.line(i), "End-of-data"); ++i) {
            // The stated format: per_line fields of `width` characters.
            const std::string_view line = source.line(i);
            std::size_t p = 0;
            for (std::size_t k = 0; k < format->per_line && p < line.size(); ++k, p += format->width) {
                const std::string_view f = trim(line.substr(p, format->width));
                if (f.empty()) break;
                if (!b.add(f, scale)) return fail(not_a_number(static_cast<std::int64_t>(i), f, "a sample"));
            }
            if (p < line.size() && !trim(line.substr(p)).empty())
                return fail(not_a_number(static_cast<std::int64_t>(i), trim(line.substr(p)),
                                         "at most " + std::to_string(format->per_line) + " values of width " +
                                             std::to_string(format->width) + " a line"));
        }
        std::string name = channel_name(source.line(s + 8), source.line(i));
        if (static_cast<std::int64_t>(b.count()) != declared)
            return fail(count_mismatch(static_cast<std::int64_t>(at), "the data block", declared,
                                       static_cast<std::int64_t>(b.count()), name));
        out.components.push_back(b.finish({std::move(name), text::round15(*step_ms / 1000.0),
                                           "real header value 62, " + number_text(*step_ms) + " ms, line " +
                                               std::to_string(step_line),
                                           declared, units, conversion}));
        s = next_content_line(source, i + 1);
    }
    return out;
}

}  // namespace tv::compute::import_detail
