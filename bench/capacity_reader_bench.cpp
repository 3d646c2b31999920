// The capacity reader on a table of 100,000 steps: the file read, cut into fields and numbers,
// and written into the step table as the window gets it. Linear in the rows.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "compute/capacity/capacity_reader.h"
#include "windows/capacity/step_table.h"

namespace {

using namespace tv;

std::string capacity_file(long rows) {
    const std::string path =
        (std::filesystem::temp_directory_path() / ("tv-capacity-bench-" + std::to_string(::getpid()) + ".txt")).string();
    std::ofstream out(path, std::ios::binary);
    out << "Capacity spectrum\n Step Teff Betaeff Sd_C Sa_C Sd_d Sa_d ALPHA Pf_fi\n";
    for (long k = 0; k < rows; ++k)
        out << ' ' << k % 30000 << " 0.4" << k % 97 << " 5.12 " << k * 0.01 << " 0.3" << k % 89
            << " 0 0 0.81 1.27\n";
    return path;
}

void BM_CapacityReader(benchmark::State& state) {
    const long rows = state.range(0);
    const std::string path = capacity_file(rows);
    for (auto _ : state) {
        const compute::CapacityTable table = compute::read_capacity_file(path);
        windows::TextTable Fg(1, 9);
        windows::write_capacity_rows(Fg, table);
        benchmark::DoNotOptimize(Fg.rows());
        if (static_cast<long>(table.rows.size()) != rows) state.SkipWithError("rows lost");
    }
    state.SetItemsProcessed(state.iterations() * rows);
    std::remove(path.c_str());
}
BENCHMARK(BM_CapacityReader)->Arg(20000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
