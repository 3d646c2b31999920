// The direct Fourier sum of a 20,000-sample record over the omega grid of the Fourier window.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "compute/fourier/fast_round15.h"
#include "compute/fourier/fourier_kernel.h"
#include "compute/fourier/fourier_sum.h"
#include "ground_motion.h"
#include "text/number_text.h"

namespace {

using tv::compute::FourierPeak;
using tv::compute::FourierSamples;

// The synthetic record at dt 0.005 (100 s), each sample kept to 15 digits as the record table
// holds it.
FourierSamples synthetic_record(int samples, double dt) {
    FourierSamples s;
    tv::bench::GroundMotion motion(10.0, 2800u);
    for (int j = 5; j < samples + 5; ++j) {
        s.j.push_back(j);
        s.x.push_back(tv::text::round15(motion(j * dt)));
    }
    return s;
}

constexpr int kSamples = 20000;
constexpr double kDt = 0.005;

// What GO--! runs: fourier_transform (threads, ordered hand-over) with the amplitude and the
// peak, for n omegas spaced deltaOmega. One item is one term (one sample at one omega). 0.05 by
// 12,001 is the window's largest grid; 0.5 by 1,200 every tenth omega of it.
void run_sums(benchmark::State& state, double deltaOmega, std::int32_t n) {
    const FourierSamples s = synthetic_record(kSamples, kDt);
    tv::compute::FourierSpectrum out;
    for (auto _ : state) {
        FourierPeak peak;
        tv::compute::fourier_transform(s, kDt, deltaOmega, n, out, peak);
        benchmark::DoNotOptimize(peak.amp);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kSamples) * n);
}

void BM_FourierSum(benchmark::State& state) { run_sums(state, 0.05, 12001); }
BENCHMARK(BM_FourierSum)->Unit(benchmark::kSecond)->MeasureProcessCPUTime()->UseRealTime()->Iterations(1);

void BM_FourierSumCoarse(benchmark::State& state) { run_sums(state, 0.5, 1200); }
BENCHMARK(BM_FourierSumCoarse)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

// One thread, one instruction set: 64 omegas spread over 0.05 .. 600.
void BM_FourierLanes(benchmark::State& state) {
    using tv::compute::detail::FourierPath;
    const auto path = static_cast<FourierPath>(state.range(0));
    tv::compute::detail::force_fourier_path(path);
    const FourierPath used = tv::compute::detail::fourier_path();
    state.SetLabel(used == FourierPath::Generic ? "generic" : used == FourierPath::Avx2 ? "avx2" : "avx512");
    const FourierSamples s = synthetic_record(kSamples, kDt);
    std::vector<double> dx;
    for (double x : s.x) dx.push_back(kDt * x);
    const tv::compute::detail::FourierKernelInput in{s.j.data(), dx.data(), s.j.size(), kDt};
    std::vector<double> omega, re(64), im(64);
    for (int i = 0; i < 64; ++i) omega.push_back(0.05 + i * 9.375);
    std::size_t library = 0;
    for (auto _ : state) {
        library += tv::compute::detail::fourier_lanes(in, omega.data(), omega.size(), re.data(), im.data());
        benchmark::DoNotOptimize(re.data());
    }
    const double terms = static_cast<double>(state.iterations()) * kSamples * 64;
    state.SetItemsProcessed(static_cast<std::int64_t>(terms));
    // Share of the sine and cosine values that had to come from the library.
    state.counters["library_share"] = static_cast<double>(library) / (2 * terms);
    tv::compute::detail::force_fourier_path(FourierPath::Automatic);
}
BENCHMARK(BM_FourierLanes)->Arg(1)->Arg(2)->Arg(3)->Unit(benchmark::kMillisecond);

// One 15-digit round trip, the exact arithmetic path against the text conversion it replaces.
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
