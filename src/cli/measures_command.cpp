// tremorvault-cli measures: intensity, duration and period measures of each record component,
// optionally after baseline correction and filtering.
#include <cstdio>
#include <cstdlib>
#include <ostream>

#include "cli/commands.h"
#include "cli/options.h"
#include "cli/record_steps.h"
#include "cli/session.h"
#include "compute/measures/ground_motion_measures.h"
#include "compute/measures/record_processing.h"
#include "text/number_text.h"

namespace tv::cli {

namespace {

const char* kMeasuresUsage =
    "usage: tremorvault-cli measures [OPTIONS] X1 Y1 [X2 Y2 [X3 Y3]]\n"
    "  --baseline acceleration|displacement   least-squares baseline fitted on either (default off)\n"
    "  --baseline-order N       polynomial order 0..6 (default 0 on the acceleration, 2 on the displacement)\n"
    "  --filter low|high|band   Butterworth filter (default off)\n"
    "  --corners F[,F2]         corner(s) in Hz: one for low or high, low and high for band\n"
    "  --filter-order N         order 1..8 per corner (default 4)\n"
    "  --zero-phase             filter forward and backward (default causal)\n"
    "  --pads SECONDS           zeros before and after while filtering (default 0)\n";

std::string shown(double value, const char* unit) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.6g %s", value, unit);
    return buf;
}

}  // namespace

int run_measures(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    OptionSpec known{{"baseline", "baseline-order", "filter", "corners", "filter-order", "pads"}, {"zero-phase"}};
    known.with_value.insert(kRecordOptions.begin(), kRecordOptions.end());
    const std::string usage = std::string(kMeasuresUsage) + kRecordUsage;
    ParsedOptions o;
    if (auto done = parse_command(args, known, "measures", usage, o, out, err)) return *done;
    if (o.files.empty() || o.files.size() % 2 != 0 || o.files.size() > 6)
        return usage_error(err, "measures", "give one to three records, an X and a Y file each", usage);

    compute::ProcessingOptions processing;
    auto bad = [&](const std::string& why) { return usage_error(err, "measures", why, usage); };
    if (auto b = o.get("baseline")) {
        if (*b != "acceleration" && *b != "displacement") return bad("--baseline takes acceleration or displacement");
        processing.baseline =
            *b == "acceleration" ? compute::BaselineFit::acceleration : compute::BaselineFit::displacement;
        processing.baseline_order = *b == "acceleration" ? 0 : 2;
        if (auto v = o.get("baseline-order"))
            if (!text::strict_whole(*v, processing.baseline_order)) return bad("--baseline-order takes a whole number");
    }
    if (auto f = o.get("filter")) {
        if (*f != "low" && *f != "high" && *f != "band") return bad("--filter takes low, high or band");
        processing.filter = *f == "low"    ? compute::FilterKind::low_pass
                            : *f == "high" ? compute::FilterKind::high_pass
                                           : compute::FilterKind::band_pass;
        const auto corners = split_list(o.get("corners").value_or(""));
        const std::size_t wanted = *f == "band" ? 2 : 1;
        std::vector<double> c(corners.size());
        for (std::size_t k = 0; k < corners.size(); ++k)
            if (!text::strict_number(corners[k], c[k])) return bad("--corners takes numbers in Hz");
        if (c.size() != wanted) return bad(*f == "band" ? "--corners takes two numbers for band" : "--corners takes one number");
        processing.low_corner = *f == "low" ? 0 : c[0];
        processing.high_corner = *f == "low" ? c[0] : *f == "band" ? c[1] : 0;
        if (auto t = o.get("filter-order"))
            if (!text::strict_whole(*t, processing.filter_order)) return bad("--filter-order takes a whole number");
        if (auto t = o.get("pads"))
            if (!text::strict_number(*t, processing.pad_seconds)) return bad("--pads takes a number of seconds");
        processing.zero_phase = o.has("zero-phase");
    }

    Session s(out, err);
    try {
        run_record_steps(s, o, o.files, true);
        s.print("processing", compute::processing_summary(processing));
        auto& state = s.program.state;
        for (std::int32_t k = 1; k <= state.recordCount; ++k) {
            for (char c : {'X', 'Y'}) {
                const std::string tag = std::string(1, c) + " " + std::to_string(k);
                std::vector<double> samples = state.samples(k, c);
                const double dt = state.recordDt(k);
                if (processing.active()) {
                    compute::ProcessingOutcome p = compute::process_record(samples, dt, processing);
                    if (!p.ok()) {
                        err << "Processing: " << tag << ": " << p.error << '\n';
                        return kFailed;
                    }
                    samples = std::move(p.samples);
                }
                const compute::MeasuresOutcome r = compute::ground_motion_measures(samples, dt);
                if (!r.ok()) {
                    err << "Measures: " << tag << ": " << r.error << '\n';
                    return kFailed;
                }
                const compute::MotionMeasures& m = r.measures;
                s.print("PGA " + tag, shown(m.pga, "g"));
                s.print("PGV " + tag, shown(m.pgv, "m/s"));
                s.print("PGD " + tag, shown(m.pgd, "m"));
                s.print("Arias intensity " + tag, shown(m.arias, "m/s"));
                s.print("D5-75 " + tag, shown(m.d5_75, "s"));
                s.print("D5-95 " + tag, shown(m.d5_95, "s"));
                s.print("bracketed duration " + tag, shown(m.bracketed, "s"));
                s.print("CAV " + tag, shown(m.cav, "g*s"));
                s.print("Housner intensity " + tag, shown(m.housner, "m"));
                s.print("predominant period " + tag, shown(m.predominant_period, "s"));
                s.print("mean period " + tag, shown(m.mean_period, "s"));
            }
        }
    } catch (const Exit& e) {
        return e.status;
    }
    return kDone;
}

}  // namespace tv::cli
