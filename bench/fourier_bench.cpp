// The direct Fourier sum: one item is one term (one sample at one omega).
#include <benchmark/benchmark.h>

#include <cmath>

#include "compute/fourier/fast_round15.h"
#include "compute/fourier/fourier_sum.h"
#include "text/number_text.h"

namespace {

tv::compute::FourierSamples record(int lines) {
    tv::compute::FourierSamples s;
    for (int j = 1; j <= lines; ++j) {
        s.j.push_back(j);
        const double t = j * 0.005;
        s.x.push_back(0.3 * std::sin(9.0 * t) * std::exp(-0.1 * t) + 0.1 * std::sin(31.0 * t));
    }
    return s;
}

// 20,000 samples at a slice of the 12,001 omegas of the full case.
void BM_FourierSum(benchmark::State& state) {
    const auto samples = record(20000);
    const auto omegas = static_cast<std::int32_t>(state.range(0));
    std::vector<double> re, im, om;
    for (auto _ : state) {
        tv::compute::fourier_sums(samples, 0.005, 0.05, omegas, re, im, om);
        benchmark::DoNotOptimize(re.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(omegas) * 20000);
}
BENCHMARK(BM_FourierSum)->Arg(240)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_Round15Fast(benchmark::State& state) {
    double x = 0.123456789;
    for (auto _ : state) {
        x = tv::compute::round15_fast(x * 1.0000001 + 1e-9);
        benchmark::DoNotOptimize(x);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_Round15Fast);

void BM_Round15Text(benchmark::State& state) {
    double x = 0.123456789;
    for (auto _ : state) {
        x = tv::text::round15(x * 1.0000001 + 1e-9);
        benchmark::DoNotOptimize(x);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_Round15Text);

}  // namespace
