// CDMG corrected .V2: per channel a text, integer and real header, then the acceleration block
// (" 3251 POINTS OF ACCEL DATA EQUALLY SPACED AT  .020 SEC.  (UNITS: CM/SEC/SEC)", eight values
// of width 10 a line), the velocity and displacement blocks, and "/&" at the channel's end.
#include "compute/import/record_layouts.h"

#include "text/number_text.h"

namespace tv::compute::import_detail {

namespace {

constexpr std::size_t kHeaderSearch = 200;  // lines from a channel's start to its acceleration block

// " 3251 POINTS OF ACCEL DATA EQUALLY SPACED AT ...": the count comes first.
bool is_acceleration_line(std::string_view line) {
    line = trim(line);
    const std::size_t digits = line.find_first_not_of("0123456789");
    return digits > 0 && digits != std::string_view::npos && contains(line, "POINTS OF ACCEL DATA EQUALLY SPACED");
}

bool ends_block(std::string_view line) { return contains(line, "POINTS OF") || starts_with_key(line, "/&"); }

}  // namespace

bool looks_like_cdmg_v2(const SourceText& source) {
    for (std::size_t i = 1; i <= kHeaderSearch && i <= source.size(); ++i)
        if (is_acceleration_line(source.line(i))) return true;
    return false;
}

Outcome read_cdmg_v2(const SourceText& source) {
    Outcome out;
    std::vector<std::string_view> fields;
    for (std::size_t s = next_content_line(source, 1); s <= source.size();) {
        std::size_t a = s;
        while (a <= source.size() && a < s + kHeaderSearch && !is_acceleration_line(source.line(a))) ++a;
        if (a > source.size() || a == s + kHeaderSearch)
            return fail(static_cast<std::int64_t>(s),
                        "expected a channel with the line \"<points> POINTS OF ACCEL DATA EQUALLY SPACED AT <step> "
                        "SEC.\" within 200 lines");
        const std::string_view head = source.line(a);
        split_fields(head, fields);
        const std::optional<std::string_view> step = number_after(head, "SPACED AT");
        const double dt = step ? read_number(*step).value_or(0.0) : 0.0;
        if (fields.empty() || !is_integer_text(fields[0]) || fields[0].size() > 15 || !(dt > 0.0) || dt > 1e15)
            return fail(static_cast<std::int64_t>(a),
                        "expected \"<points> POINTS OF ACCEL DATA EQUALLY SPACED AT <step> SEC.\"");
        const auto declared = static_cast<std::int64_t>(*read_number(fields[0]));
        Scale scale;
        std::string units = "G", conversion = "none (the file is in g)";
        if (contains(head, "UNITS: CM/S")) {
            scale = Scale{Scale::Kind::divide, kGravityGal};
            units = "cm/s^2";
            conversion = "cm/s^2 to g: divided by 980.665";
        } else if (!contains(head, "UNITS: G)")) {
            return fail(static_cast<std::int64_t>(a), "expected the units \"(UNITS: CM/SEC/SEC)\" or \"(UNITS: G)\"");
        }

        ComponentBuilder b(source, s, a, reserve_cap(declared, source.bytes()));
        std::optional<Failure> failure;
        std::size_t i = b.add_lines(source, a + 1, ends_block, scale, failure);
        if (failure) return fail(std::move(*failure));
        std::string name;
        for (std::size_t k = s; k < a && name.empty(); ++k)
            if (starts_with_key(source.line(k), "CHAN")) name = squeeze(source.line(k));
        if (static_cast<std::int64_t>(b.count()) != declared)
            return fail(count_mismatch(static_cast<std::int64_t>(a), "the acceleration block", declared,
                                       static_cast<std::int64_t>(b.count()), name));
        out.components.push_back(b.finish({name, text::round15(dt),
                                           "EQUALLY SPACED AT " + std::string(*step) + " SEC., line " +
                                               std::to_string(a),
                                           declared, units, conversion}));
        // The velocity and displacement blocks are passed over to the channel's end.
        while (i <= source.size() && !starts_with_key(source.line(i), "/&")) ++i;
        s = next_content_line(source, i + 1);
    }
    return out;
}

}  // namespace tv::compute::import_detail
