// Response spectra of three records of 8,000 samples over the standard period grid.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "compute/spectra/response_integrator.h"
#include "ground_motion.h"

namespace {

using tv::compute::PeriodGrid;
using tv::compute::RecordSpectra;
using tv::text::DoubleArray;

DoubleArray synthetic_record(int samples, double dt, std::uint32_t seed) {
    DoubleArray a(samples);
    tv::bench::GroundMotion motion(5.0, seed);
    for (int i = 1; i <= samples; ++i) a(i) = motion((i - 1) * dt);
    return a;
}

struct ThreeRecords {
    static constexpr int kSamples = 8000;
    std::vector<DoubleArray> accel;  // X1, Y1, X2, Y2, X3, Y3
    std::vector<DoubleArray> spectra;
    std::vector<RecordSpectra> records;
    PeriodGrid grid{0.01, 4, 0.01, 400};

    ThreeRecords() : accel(6), spectra(6) {
        const double dts[3] = {0.005, 0.01, 0.02};
        for (int s = 0; s < 6; ++s) accel[s] = synthetic_record(kSamples, dts[s / 2], 12345u + 977u * s);
        for (int k = 0; k < 3; ++k)
            records.push_back(RecordSpectra{dts[k], 1, kSamples, accel[2 * k], accel[2 * k + 1], spectra[2 * k],
                                            spectra[2 * k + 1]});
    }
};

void BM_ResponseIntegrator(benchmark::State& state) {
    using tv::compute::detail::KernelPath;
    const auto path = static_cast<KernelPath>(state.range(0));
    tv::compute::detail::force_kernel_path(path);
    state.SetLabel(path == KernelPath::Automatic ? "automatic"
                   : path == KernelPath::Generic ? "generic"
                   : path == KernelPath::Avx2    ? "avx2"
                                                 : "avx512");
    ThreeRecords data;
    std::int64_t steps = 0;
    for (auto _ : state) {
        std::int64_t periods = 0;
        tv::compute::integrate_records(data.records, 0.05, data.grid,
                                       tv::compute::SpectrumMeasure::PseudoAcceleration, {},
                                       [&](int) { ++periods; });
        benchmark::DoNotOptimize(data.spectra[5](1));
        // Two components per period, lastLine - 1 - firstLine steps per pass.
        steps += periods * 2 * (ThreeRecords::kSamples - 2);
    }
    state.SetItemsProcessed(steps);
    tv::compute::detail::force_kernel_path(KernelPath::Automatic);
}
// 0 automatic, 1 generic (SSE2), 2 AVX2, 3 AVX-512; all give the same bits.
BENCHMARK(BM_ResponseIntegrator)->Arg(0)->Arg(1)->Arg(2)->Arg(3)->Unit(benchmark::kMillisecond);

}  // namespace
