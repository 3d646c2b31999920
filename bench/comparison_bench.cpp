// The whole spectrum comparison: two integrator runs over three records, combination, average,
// target and the band search, on the standard period grid. The records are three real ones from
// the shared data folder when it is there (TV_DATA_DIR, or ../shared/data beside the checkout),
// three synthetic histories otherwise; the label says which.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "compute/spectra/comparison.h"
#include "compute/spectra/design_spectrum.h"
#include "compute/spectra/response_integrator.h"
#include "ground_motion.h"
#include "text/number_text.h"

namespace {

using tv::text::DoubleArray;

DoubleArray comparison_record(int samples, double dt, std::uint32_t seed) {
    DoubleArray a(samples);
    tv::bench::GroundMotion motion(5.0, seed);
    for (int i = 1; i <= samples; ++i) a(i) = motion((i - 1) * dt);
    return a;
}

// One component of a record file: header lines, then one sample per line from line 5; element i
// holds line i and the last line is the file's. Empty when the file is not there.
struct RecordFile {
    DoubleArray accel;
    std::int32_t lastLine = 0;
};

RecordFile read_record(const std::filesystem::path& path) {
    RecordFile r;
    std::ifstream in(path, std::ios::binary);
    if (!in) return r;
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    r.lastLine = static_cast<std::int32_t>(lines.size());
    r.accel.redim(r.lastLine);
    for (std::int32_t i = 5; i <= r.lastLine; ++i) r.accel(i) = tv::text::val(lines[static_cast<std::size_t>(i - 1)]);
    return r;
}

std::filesystem::path data_dir() {
    if (const char* env = std::getenv("TV_DATA_DIR")) return env;
    return std::filesystem::path(__FILE__).parent_path().parent_path().parent_path() / "shared" / "data";
}

void BM_ComparisonCalculate(benchmark::State& state) {
    // Three pairs at three time steps: Kocaeli 1999 at Duzce, Northridge 1994 at Rinaldi, Tabas 1978
    // at Ferdows.
    const char* const files[6] = {"kocaeli1999_duzce_180.txt",       "kocaeli1999_duzce_270.txt",
                                  "northridge1994_rinaldi_228.txt", "northridge1994_rinaldi_318.txt",
                                  "tabas1978_ferdows_L1.txt",       "tabas1978_ferdows_T1.txt"};
    const double dts[3] = {0.005, 0.01, 0.02};
    std::int32_t first[3], last[3];
    std::vector<DoubleArray> base(6), accel(6), spectra(6), combined(3);
    bool real = true;
    for (int s = 0; s < 6 && real; ++s) {
        RecordFile r = read_record(data_dir() / "records" / files[s]);
        if (r.lastLine == 0) real = false;
        base[s] = r.accel;
        if (s % 2 == 0) first[s / 2] = 5, last[s / 2] = r.lastLine;
    }
    if (!real) {
        constexpr int kSamples = 8000;
        for (int s = 0; s < 6; ++s) base[s] = comparison_record(kSamples, dts[s / 2], 4242u + 131u * s);
        for (int k = 0; k < 3; ++k) first[k] = 1, last[k] = kSamples;
    }
    for (int s = 0; s < 6; ++s) accel[s] = base[s];
    state.SetLabel(real ? "real records: Kocaeli Duzce, Northridge Rinaldi, Tabas Ferdows"
                        : "synthetic records (shared data not found)");
    const tv::compute::PeriodGrid grid{0.01, 4, 0.01, 400};
    const auto group = tv::compute::HazardGroup::HighVeryHigh;
    DoubleArray designSa;
    std::int32_t specCount = 0;
    tv::compute::show_design_spectrum(designSa, specCount, grid.tStart, grid.tEnd, grid.periodStep, 0.3,
                                      tv::compute::spectrum_constants(tv::compute::Soil::II, group), group);

    std::vector<tv::compute::RecordSpectra> runs;
    std::vector<tv::compute::ComparisonRecord> records;
    for (int k = 0; k < 3; ++k) {
        runs.push_back({dts[k], first[k], last[k], accel[2 * k], accel[2 * k + 1], spectra[2 * k], spectra[2 * k + 1]});
        records.push_back({first[k], last[k], base[2 * k], base[2 * k + 1], accel[2 * k], accel[2 * k + 1],
                           spectra[2 * k], spectra[2 * k + 1], 0.3, 0.25, combined[k]});
    }
    std::int64_t steps = 0;
    tv::compute::ComparisonHooks hooks;
    hooks.run_integrator = [&] {
        tv::compute::integrate_records(runs, 0.05, grid, tv::compute::SpectrumMeasure::PseudoAcceleration, {},
                                       [&](int k) { steps += 2 * std::max<std::int64_t>(0, last[k - 1] - 1 - first[k - 1]); });
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
    state.SetItemsProcessed(steps);  // oscillator steps of both runs, both components
    state.counters["factor"] = z;
}
BENCHMARK(BM_ComparisonCalculate)->Unit(benchmark::kMillisecond);

}  // namespace
