// PEER .AT2: four header lines (title, event and component, quantity and units, then NPTS and
// DT in one of two forms), then the samples several to a line.
#include "compute/import/declared_time_step.h"
#include "compute/import/record_layouts.h"

namespace tv::compute::import_detail {

namespace {

constexpr std::size_t kHeaderSearch = 10;  // the NPTS / DT line is never further down
constexpr std::size_t kDataProbe = 5;      // data lines looked at to tell a PEER file from a plain one

struct PeerHeader {
    std::optional<DeclaredTimeStep> declared;
    std::size_t last = 0;    // the NPTS / DT line
    bool signature = false;  // the title or units line reads as PEER's own
};

PeerHeader find_header(const SourceText& source) {
    PeerHeader h;
    for (std::size_t i = 1; i <= kHeaderSearch && i <= source.size(); ++i) {
        std::optional<DeclaredTimeStep> d = parse_time_step_declaration(source.line(i));
        if (d && d->points >= 0) {
            d->line = static_cast<std::int32_t>(i);
            h.declared = std::move(d);
            h.last = i;
            break;
        }
    }
    const std::string_view title = source.line(1);
    h.signature = (contains(title, "PEER") && contains(title, "STRONG MOTION")) ||
                  contains(title, "PACIFIC ENGINEERING") || contains(source.line(3), "TIME SERIES IN UNITS OF") ||
                  contains(source.line(3), "TIME HISTORY IN UNITS OF");
    return h;
}

// A file whose data hold one number per line is the record window's own layout, PEER header or not.
bool several_per_line(const SourceText& source, std::size_t from) {
    std::vector<std::string_view> scratch;
    std::size_t probed = 0;
    for (std::size_t i = from; i <= source.size() && probed < kDataProbe; ++i) {
        if (trim(source.line(i)).empty()) continue;
        ++probed;
        if (is_numeric_line(source.line(i), 2, scratch)) return true;
    }
    return false;
}

}  // namespace

bool looks_like_peer_at2(const SourceText& source) {
    const PeerHeader h = find_header(source);
    if (!h.declared && !h.signature) return false;
    return several_per_line(source, h.declared ? h.last + 1 : 5);
}

Outcome read_peer_at2(const SourceText& source) {
    const PeerHeader h = find_header(source);
    if (!h.declared)
        return fail(std::min<std::size_t>(4, source.size()),
                    "expected the number of points and the time step: \"NPTS= <points>, DT= <step> SEC\" or "
                    "\"<points> <step> NPTS, DT\"");
    const DeclaredTimeStep& declared = *h.declared;

    Scale scale;
    std::string units = "G", conversion = "none (the file is in g)";
    for (std::size_t i = 1; i <= h.last; ++i) {
        const std::string_view line = source.line(i);
        if (auto refused = not_acceleration(static_cast<std::int64_t>(i), line)) return fail(std::move(*refused));
        if (contains(line, "UNITS") && (contains(line, "CM/S") || contains(line, "GAL"))) {
            scale = Scale{Scale::Kind::divide, kGravityGal};
            units = "cm/s^2";
            conversion = "cm/s^2 to g: divided by 980.665";
        }
    }

    ComponentBuilder b(source, 1, h.last, reserve_cap(declared.points, source.bytes()));
    std::optional<Failure> failure;
    b.add_lines(source, h.last + 1, nullptr, scale, failure);
    if (failure) return fail(std::move(*failure));
    if (static_cast<std::int64_t>(b.count()) != declared.points)
        return fail(count_mismatch(declared.line, "NPTS", declared.points,
                                   static_cast<std::int64_t>(b.count()), ""));

    std::string name;
    if (h.signature) {
        // "Tabas Iran, 9/16/1978, Ferdows, L": the component is the last item of line 2.
        const std::string_view event = source.line(2);
        const std::size_t comma = event.rfind(',');
        if (comma != std::string_view::npos) name = squeeze(event.substr(comma + 1));
    }
    return one_component(b.finish({name, declared.time_step, declared.text + ", line " + std::to_string(declared.line),
                                   declared.points, units, conversion}));
}

}  // namespace tv::compute::import_detail
