// The whole spectrum comparison: two integrator runs over three records, combination, average,
// target and the band search, on the standard period grid.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "compute/spectra/comparison.h"
#include "compute/spectra/design_spectrum.h"
#include "compute/spectra/response_integrator.h"

namespace {

using tv::text::DoubleArray;

DoubleArray comparison_record(int samples, double dt, std::uint32_t seed) {
    DoubleArray a(samples);
    std::uint32_t state = seed;
    for (int i = 1; i <= samples; ++i) {
        const double t = (i - 1) * dt;
        state = state * 1664525u + 1013904223u;
        const double noise = (static_cast<double>(state >> 8) / 16777216.0 - 0.5) * 0.05;
        const double envelope = (t / 5.0) * std::exp(1.0 - t / 5.0);
        a(i) = envelope * (0.3 * std::sin(2 * M_PI * 1.1 * t) + 0.2 * std::sin(2 * M_PI * 2.7 * t + 0.4) + noise);
    }
    return a;
}

void BM_ComparisonCalculate(benchmark::State& state) {
    constexpr int kSamples = 8000;
    const double dts[3] = {0.005, 0.01, 0.02};
    std::vector<DoubleArray> base(6), accel(6), spec(6), combined(3);
    for (int s = 0; s < 6; ++s) {
        base[s] = comparison_record(kSamples, dts[s / 2], 4242u + 131u * s);
        accel[s] = base[s];
    }
    const tv::compute::PeriodGrid grid{0.01, 4, 0.01, 400};
    const auto group = tv::compute::HazardGroup::HighVeryHigh;
    DoubleArray designSa;
    std::int32_t specCount = 0;
    tv::compute::show_design_spectrum(designSa, specCount, grid.tStart, grid.tEnd, grid.periodStep, 0.3,
                                      tv::compute::spectrum_constants(tv::compute::Soil::II, group), group);

    std::vector<tv::compute::RecordSpectra> runs;
    std::vector<tv::compute::ComparisonRecord> records;
    for (int k = 0; k < 3; ++k) {
        runs.push_back({dts[k], 1, kSamples, accel[2 * k], accel[2 * k + 1], spec[2 * k], spec[2 * k + 1]});
        records.push_back({1, kSamples, base[2 * k], base[2 * k + 1], accel[2 * k], accel[2 * k + 1], spec[2 * k],
                           spec[2 * k + 1], 0.3, 0.25, combined[k]});
    }
    std::int64_t periods = 0;
    tv::compute::ComparisonHooks hooks;
    hooks.run_integrator = [&] {
        tv::compute::integrate_records(runs, 0.05, grid, tv::compute::SpectrumMeasure::PseudoAcceleration, {},
                                       [&](int) { ++periods; });
    };
    hooks.sa_scale = [] { return 1.17; };
    hooks.band = [] { return std::pair{0.01, 4.0}; };
    DoubleArray average, target;
    double z = 0;
    for (auto _ : state) {
        z = tv::compute::comparison_calculate(records, designSa, specCount, grid.periodStep,
                                              tv::compute::CombinationRule::Srss, average, target, hooks);
        benchmark::DoNotOptimize(z);
    }
    state.SetItemsProcessed(periods * 2 * (kSamples - 2));  // oscillator steps, both runs
    state.counters["factor"] = z;
}
BENCHMARK(BM_ComparisonCalculate)->Unit(benchmark::kMillisecond);

}  // namespace
