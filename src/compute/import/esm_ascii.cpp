// ESM / ITACA ASCII: a header of "KEY: value" lines, then one value per line.
#include "compute/import/record_layouts.h"

#include "text/number_text.h"

namespace tv::compute::import_detail {

namespace {

// "SAMPLING_INTERVAL_S: 0.005000": an upper-case key without blanks, then a colon.
bool is_key_line(std::string_view line) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos || colon == 0 || line[0] < 'A' || line[0] > 'Z') return false;
    for (std::size_t i = 0; i < colon; ++i)
        if (line[i] == ' ' || line[i] == '\t' || (line[i] >= 'a' && line[i] <= 'z')) return false;
    return true;
}

std::size_t header_end(const SourceText& source) {
    std::size_t last = 0;
    while (last < source.size() && is_key_line(source.line(last + 1))) ++last;
    return last;
}

std::string_view value_of(std::string_view line) { return trim(line.substr(line.find(':') + 1)); }

}  // namespace

bool looks_like_esm(const SourceText& source) {
    const std::size_t last = header_end(source);
    bool interval = false, points = false;
    for (std::size_t i = 1; i <= last; ++i) {
        interval = interval || starts_with_key(source.line(i), "SAMPLING_INTERVAL_S:");
        points = points || starts_with_key(source.line(i), "NDATA:");
    }
    return interval && points;
}

Outcome read_esm(const SourceText& source) {
    const std::size_t last = header_end(source);
    std::size_t interval_line = 0, points_line = 0, units_line = 0;
    std::string name;
    for (std::size_t i = 1; i <= last; ++i) {
        const std::string_view line = source.line(i);
        if (starts_with_key(line, "SAMPLING_INTERVAL_S:")) interval_line = i;
        if (starts_with_key(line, "NDATA:")) points_line = i;
        if (starts_with_key(line, "UNITS:")) units_line = i;
        if (starts_with_key(line, "STREAM:")) name = std::string(value_of(line));
        if (starts_with_key(line, "DATA_TYPE:"))
            if (auto refused = not_acceleration(static_cast<std::int64_t>(i), line)) return fail(std::move(*refused));
    }
    const std::optional<double> interval = read_number(value_of(source.line(interval_line)));
    if (!interval || !(*interval > 0.0) || *interval > 1e15)
        return fail(static_cast<std::int64_t>(interval_line), "expected \"SAMPLING_INTERVAL_S: <seconds>\" above zero");
    const std::string_view points_text = value_of(source.line(points_line));
    if (!is_integer_text(points_text) || points_text.size() > 15)
        return fail(static_cast<std::int64_t>(points_line), "expected \"NDATA: <points>\"");
    const auto declared = static_cast<std::int64_t>(*read_number(points_text));

    const std::string units(value_of(source.line(units_line)));
    const std::string u = upper(units);
    Scale scale;
    std::string conversion = "none (the file is in g)";
    if (u == "CM/S^2" || u == "CM/S2" || u == "CM/S/S" || u == "GAL") {
        scale = Scale{Scale::Kind::divide, kGravityGal};
        conversion = "cm/s^2 to g: divided by 980.665";
    } else if (u == "M/S^2" || u == "M/S2" || u == "M/S/S") {
        scale = Scale{Scale::Kind::divide, kGravityGal / 100.0};
        conversion = "m/s^2 to g: divided by 9.80665";
    } else if (u != "G") {
        return fail(static_cast<std::int64_t>(units_line ? units_line : last),
                    "expected \"UNITS: cm/s^2\" (or m/s^2, g)");
    }

    ComponentBuilder b(source, 1, last, reserve_cap(declared, source.bytes()));
    std::optional<Failure> failure;
    b.add_lines(source, last + 1, nullptr, scale, failure);
    if (failure) return fail(std::move(*failure));
    if (static_cast<std::int64_t>(b.count()) != declared)
        return fail(count_mismatch(static_cast<std::int64_t>(points_line), "NDATA", declared,
                                   static_cast<std::int64_t>(b.count()), ""));
    return one_component(b.finish({name, text::round15(*interval),
                                   squeeze(source.line(interval_line)) + ", line " + std::to_string(interval_line),
                                   declared, units, conversion}));
}

}  // namespace tv::compute::import_detail
