// USGS SMC: 11 text lines (the first starts with the data type code), 48 integers on 6 lines,
// 50 reals on 10 lines, the comment lines the integers announce, then the samples in cm/s²,
// five of width 15 a line, touching where a sign fills the gap. The first integer and the first
// real are the file's null markers.
#include "compute/import/record_layouts.h"

#include "text/number_text.h"

namespace tv::compute::import_detail {

namespace {

constexpr std::size_t kTextLines = 11;
constexpr std::size_t kIntegerLines = 6;
constexpr std::size_t kIntegers = 48;
constexpr std::size_t kRealLines = 10;
constexpr std::size_t kReals = 50;
constexpr std::size_t kCommentsIndex = 15;     // integer 16: number of comment lines
constexpr std::size_t kPointsIndex = 16;       // integer 17: number of samples
constexpr std::size_t kOrientationIndex = 13;  // integer 14: horizontal orientation, degrees
constexpr std::size_t kRateIndex = 1;          // real 2: samples per second

// The header numbers of lines first .. first + count - 1, each with its line; nothing when a
// field is not a number of the kind asked.
std::optional<std::vector<std::pair<double, std::size_t>>> header_numbers(const SourceText& source, std::size_t first,
                                                                          std::size_t count, bool integers,
                                                                          Failure& failure) {
    std::vector<std::pair<double, std::size_t>> out;
    std::vector<std::string_view> fields;
    for (std::size_t i = first; i < first + count; ++i) {
        split_fields(source.line(i), fields);
        for (std::string_view f : fields) {
            const std::optional<double> v = !integers || is_integer_text(f) ? read_number(f) : std::nullopt;
            if (!v) {
                failure = not_a_number(static_cast<std::int64_t>(i), f,
                                       integers ? "an integer of the header" : "a real of the header");
                return std::nullopt;
            }
            out.emplace_back(*v, i);
        }
    }
    return out;
}

}  // namespace

bool looks_like_usgs_smc(const SourceText& source) {
    const std::string_view title = source.line(1);
    if (title.size() < 2 || title[0] < '0' || title[0] > '9' || title[1] != ' ') return false;
    std::vector<std::string_view> scratch;
    for (std::size_t i = kTextLines + 1; i <= kTextLines + kIntegerLines; ++i) {
        split_fields(source.line(i), scratch);
        if (scratch.size() != 8) return false;
        for (std::string_view f : scratch)
            if (!is_integer_text(f)) return false;
    }
    return is_numeric_line(source.line(kTextLines + kIntegerLines + 1), 5, scratch);
}

Outcome read_usgs_smc(const SourceText& source) {
    if (auto refused = not_acceleration(1, source.line(1))) return fail(std::move(*refused));
    if (contains(source.line(1), "SPECTR")) return fail(1, "the file holds spectra; a record holds accelerations");
    Failure failure;
    const auto integers = header_numbers(source, kTextLines + 1, kIntegerLines, true, failure);
    if (!integers) return fail(failure);
    const auto reals = header_numbers(source, kTextLines + kIntegerLines + 1, kRealLines, false, failure);
    if (!reals) return fail(failure);
    if (integers->size() != kIntegers)
        return fail(kTextLines + 1, "expected 48 integers on the 6 lines of the integer header");
    if (reals->size() != kReals)
        return fail(kTextLines + kIntegerLines + 1, "expected 50 reals on the 10 lines of the real header");
    const double int_null = (*integers)[0].first, real_null = (*reals)[0].first;
    const auto [comments, comments_line] = (*integers)[kCommentsIndex];
    const auto [points, points_line] = (*integers)[kPointsIndex];
    const auto [rate, rate_line] = (*reals)[kRateIndex];
    if (comments == int_null || comments < 0 || comments > static_cast<double>(source.size()))
        return fail(static_cast<std::int64_t>(comments_line), "expected the number of comment lines as integer 16");
    if (points == int_null || points < 0 || points > 1e15)
        return fail(static_cast<std::int64_t>(points_line), "expected the number of samples as integer 17");
    if (rate == real_null || !(rate > 0.0) || rate > 1e9)
        return fail(static_cast<std::int64_t>(rate_line), "expected the samples per second as real 2");
    const auto declared = static_cast<std::int64_t>(points);

    const std::size_t first_comment = kTextLines + kIntegerLines + kRealLines + 1;
    const std::size_t data = first_comment + static_cast<std::size_t>(comments);
    // Values converted from g state the factor they were scaled by; others are in cm/s².
    Scale scale{Scale::Kind::divide, kGravityGal};
    std::string conversion = "cm/s^2 to g: divided by 980.665";
    for (std::size_t i = first_comment; i < data; ++i) {
        const std::optional<std::string_view> factor = number_after(source.line(i), "scaled by the factor");
        const double f = factor ? read_number(*factor).value_or(0.0) : 0.0;
        if (f > 0.0 && f < 1e15) {
            scale.divisor = f;
            conversion = "divided by " + number_text(f) + ", the factor line " + std::to_string(i) +
                         " says the values in g were scaled by";
        }
    }

    ComponentBuilder b(source, 1, data - 1, reserve_cap(declared, source.bytes()));
    std::optional<Failure> bad_sample;
    b.add_lines(source, data, nullptr, scale, bad_sample, &real_null);
    if (bad_sample) return fail(std::move(*bad_sample));
    if (static_cast<std::int64_t>(b.count()) != declared)
        return fail(count_mismatch(static_cast<std::int64_t>(points_line), "integer 17 of the header", declared,
                                   static_cast<std::int64_t>(b.count()), ""));
    const double orientation = (*integers)[kOrientationIndex].first;
    return one_component(b.finish({orientation != int_null ? number_text(orientation) + "\u00B0" : std::string(),
                                   text::round15(1.0 / rate),
                                   "real 2 of the header, " + number_text(rate) + " samples per second, line " +
                                       std::to_string(rate_line),
                                   declared, "cm/s^2", conversion}));
}

}  // namespace tv::compute::import_detail
