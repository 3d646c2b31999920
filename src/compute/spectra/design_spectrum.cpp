#include "compute/spectra/design_spectrum.h"


#include "compute/files/text_file.h"
#include "compute/spectra/period_grid.h"
#include "text/number_text.h"
#include "text/rounding.h"

namespace tv::compute {

HazardGroup hazard_group(Hazard hazard) {
    return (hazard == Hazard::Low || hazard == Hazard::Moderate) ? HazardGroup::LowModerate
                                                                 : HazardGroup::HighVeryHigh;
}

SpectrumConstants spectrum_constants(Soil soil, HazardGroup group) {
    switch (soil) {
        case Soil::I: return {0.1, 0.4, 1.5, 1};
        case Soil::II: return {0.1, 0.5, 1.5, 1};
        case Soil::III: return {0.15, 0.7, 1.75, 1.1};
        case Soil::IV:
            if (group == HazardGroup::LowModerate) return {0.15, 1, 2.25, 1.3};
            return {0.15, 1, 1.75, 1.1};
    }
    return {};
}

double default_scale(Hazard hazard) {
    switch (hazard) {
        case Hazard::Low: return 0.2;
        case Hazard::Moderate: return 0.25;
        case Hazard::High: return 0.3;
        case Hazard::VeryHigh: return 0.35;
    }
    return 0;
}

double design_spectrum(double T, double A, const SpectrumConstants& k, HazardGroup group) {
    // Written in the order of the code's formulas; the branch tests overlap at Ts on purpose.
    double b1 = 0;
    if (0 <= T && T < k.T0) {
        b1 = A * (k.S0 + (k.S - k.S0 + 1) * T / k.T0);
    } else if (T >= k.T0 && T <= k.Ts) {
        b1 = (k.S + 1) * A;
    } else if (T >= k.Ts) {
        b1 = (k.S + 1) * A * k.Ts / T;
    }
    const double c = group == HazardGroup::LowModerate ? 0.4 : 0.7;
    const double ceiling = group == HazardGroup::LowModerate ? 1.4 : 1.7;
    double n = 1;
    if (T > k.Ts && T < 4) n = 1 + c * (T - k.Ts) / (4 - k.Ts);
    if (T == 4 || T > 4) n = ceiling;
    return text::chk(b1 * n);
}

void show_design_spectrum(text::DoubleArray& designSa, std::int32_t& specCount, double tStart, double tEnd,
                          double step, double A, const SpectrumConstants& k, HazardGroup group) {
    specCount = period_count(tEnd, step);
    designSa.redim(specCount);
    // The pass count is not tied to specCount: rounding of T may drop the last pass, and a
    // start of 0 makes one pass too many, which fails on the index.
    const PeriodGrid grid{tStart, tEnd, step, specCount, true};
    grid.each([&](long i, double T) { designSa(i) = design_spectrum(T, A, k, group); });
}

void read_spectrum_file(const std::string& path, double tEnd, double step, text::DoubleArray& designSa,
                        std::int32_t& specCount) {
    TextFile file = read_text_file(path);
    if (!file.ok()) throw_file_error(file);
    specCount = period_count(tEnd, step);
    designSa.redim(specCount);
    for (long i = 1; i <= specCount && i <= static_cast<long>(file.lines.size()); ++i)
        designSa(i) = text::val(file.lines[static_cast<std::size_t>(i - 1)]);
}

}  // namespace tv::compute
