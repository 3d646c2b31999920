// Rotated spectra of a pair and every measure of one component, on synthetic records of 8,000
// samples.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "compute/measures/ground_motion_measures.h"
#include "compute/measures/rotd_spectra.h"

namespace {

// Sines under a rise-and-decay envelope plus noise, at dt = 0.005 s.
std::vector<double> synthetic(int samples, std::uint32_t seed, double phase) {
    std::vector<double> a(samples);
    std::uint32_t state = seed;
    for (int i = 0; i < samples; ++i) {
        const double t = i * 0.005;
        state = state * 1664525u + 1013904223u;
        const double noise = (static_cast<double>(state >> 8) / 16777216.0 - 0.5) * 0.05;
        const double envelope = (t / 5.0) * std::exp(1.0 - t / 5.0);
        a[i] = envelope * (0.3 * std::sin(2 * M_PI * 1.1 * t + phase) + 0.2 * std::sin(2 * M_PI * 2.7 * t + 0.4) +
                           0.1 * std::sin(2 * M_PI * 6.3 * t + 1.3 + phase) + noise);
    }
    return a;
}

// Two components of 8,000 samples, 400 periods (0.01 to 4 s), 180 angles.
void BM_RotD(benchmark::State& state) {
    const std::vector<double> a1 = synthetic(8000, 12345u, 0.0), a2 = synthetic(8000, 54321u, 0.9);
    std::vector<double> periods(400);
    for (int j = 0; j < 400; ++j) periods[j] = (j + 1) / 100.0;
    for (auto _ : state) {
        auto r = tv::compute::rotd_spectra(a1, a2, 0.005, 0.05, periods);
        benchmark::DoNotOptimize(r.spectra.rotd50.data());
    }
    state.SetItemsProcessed(state.iterations() * 400 * 180);
}
BENCHMARK(BM_RotD)->Unit(benchmark::kMillisecond);

// Every measure and history of one component of 8,000 samples.
void BM_Measures(benchmark::State& state) {
    const std::vector<double> a = synthetic(8000, 12345u, 0.0);
    for (auto _ : state) {
        auto r = tv::compute::ground_motion_measures(a, 0.005);
        benchmark::DoNotOptimize(r.measures.mean_period);
    }
}
BENCHMARK(BM_Measures)->Unit(benchmark::kMillisecond);

}  // namespace
