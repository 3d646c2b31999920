// Reading the largest real record files through the import entry, from their bytes in memory to
// the window's lines and samples in g: /0 the PEER Chi-Chi TCU078 E original (18,000 samples five
// to a line), /1 the three-component BHRC file 5523-1.V1 (39,168 samples in G/10).
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "compute/import/record_import.h"

namespace {

std::filesystem::path records_dir() {
    if (const char* env = std::getenv("TV_DATA_DIR")) return std::filesystem::path(env) / "records";
    return std::filesystem::path(TV_DATA_DIR) / "records";
}

void BM_RecordImport(benchmark::State& state) {
    const char* const files[] = {"original/RSN1512_CHICHI_TCU078-E.AT2", "formats/5523-1.V1"};
    const std::filesystem::path path = records_dir() / files[state.range(0)];
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    const std::string content = bytes.str();
    if (content.empty()) {
        state.SkipWithError("records data not found");
        return;
    }
    std::size_t samples = 0;
    for (auto _ : state) {
        const tv::compute::RecordImport r = tv::compute::parse_record(content, path.string());
        samples = 0;
        for (const auto& c : r.components) samples += c.samples.size();
        benchmark::DoNotOptimize(samples);
    }
    state.SetLabel(path.filename().string() + ", " + std::to_string(samples) + " samples");
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(content.size()));
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(samples));
}
BENCHMARK(BM_RecordImport)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
