#include "compute/spectra/comparison.h"

#include "compute/spectra/period_grid.h"
#include "text/format.h"
#include "text/number_text.h"
#include "text/rounding.h"

namespace tv::compute {

void combine_record(const text::DoubleArray& specX, const text::DoubleArray& specY, std::int32_t specCount,
                    CombinationRule rule, double peakX, double peakY, text::DoubleArray& combined) {
    combined.redim(specCount);
    if (rule == CombinationRule::Srss) {
        for (long j = 1; j <= specCount; ++j) {
            const double x = specX(j);
            const double y = specY(j);
            combined(j) = text::sqrt_(text::chk(x * x + y * y));
        }
        return;
    }
    // Chosen by the peak accelerations, not by the spectra; a tie takes Y.
    const text::DoubleArray& larger = peakY >= peakX ? specY : specX;
    for (long j = 1; j <= specCount; ++j) combined(j) = larger(j);
}

void average_spectrum(const std::vector<const text::DoubleArray*>& combined, std::int32_t specCount,
                      text::DoubleArray& average) {
    average.redim(specCount);
    const std::size_t n = combined.size();
    // The count passes through its text form, as the window divides by the number it shows.
    const double divisor = text::round15(static_cast<double>(n));
    for (long j = 1; j <= specCount; ++j) {
        if (n == 0) text::raise(text::kSubscript);
        double sum = (*combined[0])(j);
        for (std::size_t r = 1; r < n; ++r) sum = sum + (*combined[r])(j);
        average(j) = text::div(text::chk(sum), divisor);
    }
}

void target_spectrum(const text::DoubleArray& designSa, double saScale, std::int32_t specCount,
                     text::DoubleArray& target) {
    target.redim(specCount);
    for (long j = 1; j <= specCount; ++j) target(j) = text::chk(saScale * designSa(j));
}

double largest_shortfall_ratio(const text::DoubleArray& average, const text::DoubleArray& target, double tStart,
                               double tEnd, double periodStep) {
    // The band is taken as shown with two decimals.
    const double first = text::val(text::format(tStart, "0.00"));
    const double last = text::val(text::format(tEnd, "0.00"));
    double M = 1;
    const PeriodGrid band{first, last, periodStep};
    band.each([&](long, double T) {
        const long j = index_of_period(T, periodStep);
        if (average(j) < target(j)) {
            const double ratio = text::div(target(j), average(j));
            if (ratio > M) M = ratio;
        }
    });
    return M;
}

double round_factor(double M) { return text::round_to(M, 2); }

void scale_record(const text::DoubleArray& baseX, const text::DoubleArray& baseY, text::DoubleArray& accelX,
                  text::DoubleArray& accelY, std::int32_t firstLine, std::int32_t lastLine, double z) {
    for (long i = firstLine; i <= static_cast<long>(lastLine) - 1; ++i) {
        accelX(i) = text::chk(z * baseX(i));
        accelY(i) = text::chk(z * baseY(i));
    }
}

double comparison_calculate(const std::vector<ComparisonRecord>& records, const text::DoubleArray& designSa,
                            std::int32_t specCount, double periodStep, CombinationRule rule,
                            text::DoubleArray& average, text::DoubleArray& target, const ComparisonHooks& hooks) {
    double z = 1;
    double M = 1;
    int pass = 0;
    // The counter makes two times through: the first finds M with z = 1, the second computes
    // everything again for the rounded factor.
    for (;;) {
        if (pass >= 3) break;
        ++pass;
        for (const ComparisonRecord& r : records)
            scale_record(r.baseX, r.baseY, r.accelX, r.accelY, r.firstLine, r.lastLine, z);
        if (hooks.run_integrator) hooks.run_integrator();
        std::vector<const text::DoubleArray*> combined;
        for (const ComparisonRecord& r : records) {
            combine_record(r.specX, r.specY, specCount, rule, r.peakX, r.peakY, r.combined);
            combined.push_back(&r.combined);
        }
        average_spectrum(combined, specCount, average);
        target_spectrum(designSa, hooks.sa_scale ? hooks.sa_scale() : 1.0, specCount, target);
        if (pass < 2) {
            const auto band = hooks.band ? hooks.band() : std::pair<double, double>{0, -1};
            M = largest_shortfall_ratio(average, target, band.first, band.second, periodStep);
            ++pass;
        }
        z = round_factor(M);
        if (hooks.show_factor) hooks.show_factor(z);
        if (pass == 3) break;
    }
    return z;
}

}  // namespace tv::compute
