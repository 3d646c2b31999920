#include "compute/fourier/ordered_parallel.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace tv::compute::detail {

unsigned worker_threads() { return std::clamp(std::thread::hardware_concurrency(), 1u, 8u); }

void ordered_parallel(std::int64_t n, std::int64_t chunk, unsigned threads,
                      const std::function<void(std::int64_t first, std::int64_t last)>& work,
                      const std::function<void(std::int64_t i)>& done) {
    if (n <= 0) return;
    chunk = std::max<std::int64_t>(chunk, 1);
    const std::int64_t chunks = (n + chunk - 1) / chunk;
    auto first_of = [&](std::int64_t c) { return 1 + c * chunk; };
    auto last_of = [&](std::int64_t c) { return std::min(n, first_of(c) + chunk - 1); };
    auto report = [&](std::int64_t c) {
        if (!done) return;
        for (std::int64_t i = first_of(c); i <= last_of(c); ++i) done(i);
    };
    if (threads <= 1 || chunks == 1) {
        for (std::int64_t c = 0; c < chunks; ++c) {
            work(first_of(c), last_of(c));
            report(c);
        }
        return;
    }

    std::atomic<std::int64_t> next{0};
    std::atomic<bool> stop{false};
    std::unique_ptr<std::atomic<bool>[]> finished(new std::atomic<bool>[static_cast<std::size_t>(chunks)]);
    for (std::int64_t c = 0; c < chunks; ++c) finished[static_cast<std::size_t>(c)] = false;
    std::mutex mutex;
    std::condition_variable changed;

    // Takes the next chunk and computes it; false when none is left or the run stops.
    auto run_one = [&]() -> bool {
        if (stop.load()) return false;
        const std::int64_t c = next.fetch_add(1);
        if (c >= chunks) return false;
        work(first_of(c), last_of(c));
        {
            std::lock_guard<std::mutex> lock(mutex);
            finished[static_cast<std::size_t>(c)] = true;
        }
        changed.notify_all();
        return true;
    };

    std::vector<std::thread> helpers;
    // Helpers are stopped and joined however this function ends.
    struct Join {
        std::atomic<bool>& stop;
        std::vector<std::thread>& helpers;
        ~Join() {
            stop = true;
            for (auto& t : helpers) t.join();
        }
    } join{stop, helpers};
    const std::int64_t helperCount = std::min<std::int64_t>(threads, chunks) - 1;
    for (std::int64_t t = 0; t < helperCount; ++t)
        helpers.emplace_back([&] {
            while (run_one()) {
            }
        });

    std::int64_t reported = 0;
    while (reported < chunks) {
        while (reported < chunks && finished[static_cast<std::size_t>(reported)].load()) report(reported++);
        if (reported == chunks) break;
        if (!run_one()) {
            std::unique_lock<std::mutex> lock(mutex);
            changed.wait(lock, [&] { return finished[static_cast<std::size_t>(reported)].load(); });
        }
    }
}

}  // namespace tv::compute::detail
