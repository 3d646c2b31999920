// tremorvault-cli measures: intensity, duration and period measures of each record component,
// optionally after baseline correction and filtering.
#include <cstdio>
#include <cstdlib>
#include <ostream>

#include "cli/commands.h"
#include "cli/options.h"
#include "cli/processing_option.h"
#include "cli/record_steps.h"
#include "cli/session.h"
#include "compute/measures/ground_motion_measures.h"
#include "compute/measures/record_processing.h"
#include "text/number_text.h"

namespace tv::cli {

namespace {

const char* kMeasuresUsage = "usage: tremorvault-cli measures [OPTIONS] X1 Y1 [X2 Y2 [X3 Y3]]\n";

std::string shown(double value, const char* unit) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.6g %s", value, unit);
    return buf;
}

}  // namespace

int run_measures(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    OptionSpec known{{kProcessingOptions.begin(), kProcessingOptions.end()}, {kZeroPhaseFlag}};
    known.with_value.insert(kRecordOptions.begin(), kRecordOptions.end());
    const std::string usage = std::string(kMeasuresUsage) + kProcessingUsage + kRecordUsage;
    ParsedOptions o;
    if (auto done = parse_command(args, known, "measures", usage, o, out, err)) return *done;
    if (o.files.empty() || o.files.size() % 2 != 0 || o.files.size() > 6)
        return usage_error(err, "measures", "give one to three records, an X and a Y file each", usage);

    compute::ProcessingOptions processing;
    if (auto why = processing_from(o, processing)) return usage_error(err, "measures", *why, usage);

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
