#include "cli/processing_option.h"

#include <ostream>

#include "text/number_text.h"
#include "windows/measures/measures_window.h"
#include "windows/project/record_input_window.h"

namespace tv::cli {

const std::vector<std::string> kProcessingOptions{"baseline", "baseline-order", "filter", "corners", "filter-order",
                                                  "pads"};
const char* const kZeroPhaseFlag = "zero-phase";

const char* const kProcessingUsage =
    "  --baseline acceleration|displacement   least-squares baseline fitted on either (default off)\n"
    "  --baseline-order N       polynomial order 0..6 (default 0 on the acceleration, 2 on the displacement)\n"
    "  --filter low|high|band   Butterworth filter (default off)\n"
    "  --corners F[,F2]         corner(s) in Hz: one for low or high, low and high for band\n"
    "  --filter-order N         order 1..8 per corner (default 4)\n"
    "  --zero-phase             filter forward and backward (default causal)\n"
    "  --pads SECONDS           zeros before and after while filtering (default 0)\n";

std::optional<std::string> processing_from(const ParsedOptions& o, compute::ProcessingOptions& processing) {
    if (auto b = o.get("baseline")) {
        if (*b != "acceleration" && *b != "displacement") return "--baseline takes acceleration or displacement";
        processing.baseline =
            *b == "acceleration" ? compute::BaselineFit::acceleration : compute::BaselineFit::displacement;
        processing.baseline_order = *b == "acceleration" ? 0 : 2;
        if (auto v = o.get("baseline-order"))
            if (!text::strict_whole(*v, processing.baseline_order)) return "--baseline-order takes a whole number";
    }
    if (auto f = o.get("filter")) {
        if (*f != "low" && *f != "high" && *f != "band") return "--filter takes low, high or band";
        processing.filter = *f == "low"    ? compute::FilterKind::low_pass
                            : *f == "high" ? compute::FilterKind::high_pass
                                           : compute::FilterKind::band_pass;
        const auto corners = split_list(o.get("corners").value_or(""));
        const std::size_t wanted = *f == "band" ? 2 : 1;
        std::vector<double> c(corners.size());
        for (std::size_t k = 0; k < corners.size(); ++k)
            if (!text::strict_number(corners[k], c[k])) return "--corners takes numbers in Hz";
        if (c.size() != wanted) return *f == "band" ? "--corners takes two numbers for band" : "--corners takes one number";
        processing.low_corner = *f == "low" ? 0 : c[0];
        processing.high_corner = *f == "low" ? c[0] : *f == "band" ? c[1] : 0;
        if (auto t = o.get("filter-order"))
            if (!text::strict_whole(*t, processing.filter_order)) return "--filter-order takes a whole number";
        if (auto t = o.get("pads"))
            if (!text::strict_number(*t, processing.pad_seconds)) return "--pads takes a number of seconds";
        processing.zero_phase = o.has(kZeroPhaseFlag);
    }
    return std::nullopt;
}

void apply_processing(Session& s, const ParsedOptions& o, const compute::ProcessingOptions& p, std::size_t record) {
    auto& f1 = s.program.form<windows::Form1>();
    s.step([&] { f1.cmdMeasures.press(); });
    auto& m = s.program.form<windows::MeasuresWindow>();
    // The window reads the boxes as the options were typed, so both read the same numbers.
    s.step([&] {
        using compute::BaselineFit, compute::FilterKind;
        m.BaselineFit.set_list_index(p.baseline == BaselineFit::acceleration   ? 1
                                     : p.baseline == BaselineFit::displacement ? 2
                                                                               : 0);
        m.BaselineOrder.set_text(std::to_string(p.baseline_order));
        m.FilterKind.set_list_index(p.filter == FilterKind::low_pass    ? 1
                                    : p.filter == FilterKind::high_pass ? 2
                                    : p.filter == FilterKind::band_pass ? 3
                                                                        : 0);
        const auto corners = split_list(o.get("corners").value_or(""));
        if (p.filter == FilterKind::low_pass) m.HighCorner.set_text(corners.at(0));
        if (p.filter == FilterKind::high_pass || p.filter == FilterKind::band_pass) m.LowCorner.set_text(corners.at(0));
        if (p.filter == FilterKind::band_pass) m.HighCorner.set_text(corners.at(1));
        if (auto t = o.get("filter-order")) m.FilterOrder.set_text(*t);
        if (auto t = o.get("pads")) m.Pads.set_text(*t);
        m.ZeroPhase.set_value(p.zero_phase ? 1 : 0);
    });
    s.step([&] { m.Apply.press(); });
    if (!m.Undo.enabled()) {
        s.err << "Processing: record " << record << ": " << m.Message.caption() << '\n';
        throw Exit{kFailed};
    }
    s.print("processing " + std::to_string(record), s.program.state.recordProcessing(static_cast<long>(record)));
}

}  // namespace tv::cli
