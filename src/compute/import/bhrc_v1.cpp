// Iranian strong-motion network (BHRC) VOL1DS: three components one after the other, each a
// block of 13 text lines, 7 lines of integers, 7 lines of reals, then ten values a line in
// units of G/10, ended by "/&".
#include "compute/import/record_layouts.h"

#include <cmath>

#include "text/number_text.h"

namespace tv::compute::import_detail {

namespace {

constexpr std::size_t kTextLines = 13;
constexpr std::size_t kIntegerLines = 7;
constexpr std::size_t kRealLines = 7;

bool is_block_start(std::string_view line) { return line.substr(0, 5) == "* VOL"; }

bool ends_component(std::string_view line) { return starts_with_key(line, "/&"); }

// "Azimuth L 177   T 267": the angle written after the component's letter.
std::string azimuth_of(std::string_view station, char letter) {
    const std::size_t at = upper(station).find("AZIMUTH");
    if (at == std::string::npos) return {};
    std::vector<std::string_view> words;
    split_fields(station.substr(at + 7), words);
    for (std::size_t k = 0; k + 1 < words.size(); ++k)
        if (words[k].size() == 1 && (words[k][0] == letter || words[k][0] == letter - 'A' + 'a') &&
            is_integer_text(words[k + 1]))
            return std::string(words[k + 1]);
    return {};
}

}  // namespace

bool looks_like_bhrc_v1(const SourceText& source) {
    return is_block_start(source.line(1)) && starts_with_key(source.line(7), "COMP");
}

Outcome read_bhrc_v1(const SourceText& source) {
    Outcome out;
    std::vector<std::string_view> fields;
    for (std::size_t s = next_content_line(source, 1); s <= source.size();) {
        const auto at = [s](std::size_t k) { return static_cast<std::int64_t>(s + k); };
        if (!is_block_start(source.line(s)))
            return fail(at(0), "expected the first line of a component (\"* VOL1DS FILE: ...\")");
        std::string comp, station;
        std::optional<std::string_view> points, duration;
        std::size_t points_line = 0;
        Scale scale;
        std::string units, conversion;
        for (std::size_t k = 1; k < kTextLines; ++k) {
            const std::string_view line = source.line(s + k);
            if (starts_with_key(line, "COMP")) comp = squeeze(trim(line).substr(4));
            if (contains(line, "AZIMUTH")) station = std::string(line);
            if (contains(line, "NO. OF POINTS")) {
                points = number_after(line, "NO. OF POINTS");
                duration = number_after(line, "DURATION");
                points_line = s + k;
            }
            if (contains(line, "UNITS ARE")) {
                if (contains(line, "G/10")) {
                    scale = Scale{Scale::Kind::divide_by_ten, 1.0};
                    units = "G/10";
                    conversion = "G/10 to g: divided by 10";
                } else if (contains(line, "CM/S")) {
                    scale = Scale{Scale::Kind::divide, kGravityGal};
                    units = "cm/s^2";
                    conversion = "cm/s^2 to g: divided by 980.665";
                } else {
                    return fail(at(k), "expected the units \"G/10\" or \"CM/SEC/SEC\"");
                }
            }
        }
        if (!points || !duration || !is_integer_text(*points))
            return fail(points_line ? static_cast<std::int64_t>(points_line) : at(10),
                        "expected \"NO. OF POINTS = <points>   DURATION = <seconds>\"");
        if (units.empty()) return fail(at(11), "expected \"UNITS ARE SECONDS AND G/10\"");
        for (std::size_t k = kTextLines; k < kTextLines + kIntegerLines + kRealLines; ++k) {
            split_fields(source.line(s + k), fields);
            for (std::string_view f : fields)
                if (k < kTextLines + kIntegerLines ? !is_integer_text(f) : !read_number(f))
                    return fail(not_a_number(at(k), f, k < kTextLines + kIntegerLines ? "an integer of the header"
                                                                                      : "a real of the header"));
        }
        const double declared = read_number(*points).value_or(-1.0);
        const double seconds = read_number(*duration).value_or(-1.0);
        if (declared < 1 || declared > 1e15 || !(seconds > 0.0) || seconds > 1e15)
            return fail(static_cast<std::int64_t>(points_line),
                        "expected a number of points and a duration above zero");

        const std::size_t data = s + kTextLines + kIntegerLines + kRealLines;
        ComponentBuilder b(source, s, data - 1, reserve_cap(static_cast<std::int64_t>(declared), source.bytes()));
        std::optional<Failure> failure;
        const std::size_t end = b.add_lines(source, data, ends_component, scale, failure);
        if (failure) return fail(std::move(*failure));
        if (static_cast<double>(b.count()) != declared)
            return fail(count_mismatch(static_cast<std::int64_t>(points_line), "NO. OF POINTS",
                                       static_cast<std::int64_t>(declared), static_cast<std::int64_t>(b.count()),
                                       comp));

        const std::string angle = comp.empty() ? std::string() : azimuth_of(station, comp[0]);
        out.components.push_back(b.finish({angle.empty() ? comp : comp + " (" + angle + "\u00B0)",
                                           text::round15(seconds / declared),
                                           "DURATION = " + std::string(*duration) + " / NO. OF POINTS = " +
                                               std::string(*points) + ", line " + std::to_string(points_line),
                                           static_cast<std::int64_t>(declared), units, conversion}));
        s = next_content_line(source, end + 1);
    }
    return out;
}

}  // namespace tv::compute::import_detail
