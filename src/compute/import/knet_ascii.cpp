// K-NET and KiK-net ASCII: a header of "Key   value" lines ending with "Memo.", then integer
// counts eight to a line. gal = counts x the Scale Factor, after the counts' mean (the
// recorder's offset) is removed.
#include "compute/import/record_layouts.h"

#include <cmath>

#include "text/number_text.h"

namespace tv::compute::import_detail {

namespace {

constexpr std::size_t kHeaderSearch = 30;
constexpr double kCountLimit = 1e12;  // far beyond any recorder; keeps the sum exact

// KiK-net numbers its channels: 1-3 in the borehole, 4-6 at the surface.
std::string channel_name(std::string_view dir) {
    static const char* const kKiknet[] = {"N-S, borehole", "E-W, borehole", "U-D, borehole",
                                          "N-S, surface",  "E-W, surface",  "U-D, surface"};
    if (dir.size() == 1 && dir[0] >= '1' && dir[0] <= '6')
        return std::string(dir) + " (" + kKiknet[dir[0] - '1'] + ")";
    return std::string(dir);
}

}  // namespace

bool looks_like_knet(const SourceText& source) {
    if (!starts_with_key(source.line(1), "Origin Time")) return false;
    bool scale = false, frequency = false;
    for (std::size_t i = 2; i <= kHeaderSearch && i <= source.size(); ++i) {
        scale = scale || starts_with_key(source.line(i), "Scale Factor");
        frequency = frequency || starts_with_key(source.line(i), "Sampling Freq");
    }
    return scale && frequency;
}

Outcome read_knet(const SourceText& source) {
    std::size_t memo = 0, frequency_line = 0, scale_line = 0, duration_line = 0;
    std::optional<std::string_view> frequency_text, duration_text;
    std::optional<double> numerator, denominator;
    std::string dir, unit;
    for (std::size_t i = 1; i <= kHeaderSearch && i <= source.size() && !memo; ++i) {
        const std::string_view line = source.line(i);
        if (starts_with_key(line, "Memo.")) memo = i;
        if (starts_with_key(line, "Sampling Freq(Hz)")) {
            frequency_text = number_after(line, "Sampling Freq(Hz)");
            frequency_line = i;
        }
        if (starts_with_key(line, "Duration Time(s)")) {
            duration_text = number_after(line, "Duration Time(s)");
            duration_line = i;
        }
        if (starts_with_key(line, "Dir.")) dir = squeeze(trim(line).substr(4));
        if (starts_with_key(line, "Scale Factor")) {
            scale_line = i;
            // "3920(gal)/6182761"
            const std::string_view value = trim(trim(line).substr(12));
            const std::size_t n = number_prefix(value);
            const std::size_t open = value.find('('), close = value.find(')'), slash = value.find('/', n);
            if (n > 0 && open == n && close != std::string_view::npos && close > open && slash == close + 1) {
                numerator = read_number(value.substr(0, n));
                unit = std::string(value.substr(open + 1, close - open - 1));
                const std::string_view rest = value.substr(slash + 1);
                if (number_prefix(rest) == rest.size()) denominator = read_number(rest);
            }
        }
    }
    if (!memo) return fail(std::min<std::size_t>(17, source.size()), "expected the header's last line, \"Memo.\"");
    if (!frequency_text) return fail(static_cast<std::int64_t>(frequency_line ? frequency_line : memo),
                                     "expected \"Sampling Freq(Hz) <frequency>Hz\"");
    if (!numerator || !denominator || !(*denominator != 0.0) || upper(unit) != "GAL")
        return fail(static_cast<std::int64_t>(scale_line ? scale_line : memo),
                    "expected \"Scale Factor <gal>(gal)/<counts>\"");
    const double frequency = read_number(*frequency_text).value_or(0.0);
    if (!(frequency > 0.0) || frequency > 1e9)
        return fail(static_cast<std::int64_t>(frequency_line), "expected a sampling frequency above zero");

    // Declared: the duration in whole seconds times the frequency.
    std::int64_t declared = -1;
    if (duration_text) {
        const double points = read_number(*duration_text).value_or(-1.0) * frequency;
        if (points >= 0 && points < 1e15) declared = static_cast<std::int64_t>(std::llround(points));
    }

    std::vector<std::int64_t> counts;
    counts.reserve(reserve_cap(declared, source.bytes()));
    std::vector<std::string_view> fields;
    std::int64_t sum = 0;
    for (std::size_t i = memo + 1; i <= source.size(); ++i) {
        split_fields(source.line(i), fields);
        for (std::string_view f : fields) {
            std::optional<double> v = is_integer_text(f) ? read_number(f) : std::nullopt;
            if (!v || std::fabs(*v) >= kCountLimit)
                return fail(not_a_number(static_cast<std::int64_t>(i), f, "an integer count"));
            counts.push_back(static_cast<std::int64_t>(*v));
            sum += counts.back();
        }
    }
    if (declared >= 0 && static_cast<std::int64_t>(counts.size()) != declared)
        return fail(count_mismatch(static_cast<std::int64_t>(duration_line),
                                   "Duration Time(s) x Sampling Freq(Hz)", declared,
                                   static_cast<std::int64_t>(counts.size()), ""));
    if (counts.empty()) return fail(static_cast<std::int64_t>(memo), "no counts after the header");

    ComponentBuilder b(source, 1, memo, counts.size());
    const double mean = static_cast<double>(sum) / static_cast<double>(counts.size());
    for (std::int64_t count : counts) {
        const double gal = (static_cast<double>(count) - mean) * *numerator / *denominator;
        b.add_value(gal / kGravityGal);
    }
    return one_component(b.finish({channel_name(dir), text::round15(1.0 / frequency),
                                   squeeze(source.line(frequency_line)) + ", line " + std::to_string(frequency_line),
                                   declared, "counts",
                                   "counts minus their mean, times " +
                                       std::string(trim(trim(source.line(scale_line)).substr(12))) +
                                       ", gal to g: divided by 980.665"}));
}

}  // namespace tv::compute::import_detail
