#pragma once
// Independent items computed on several threads and handed over in order on the calling thread.
#include <cstdint>
#include <functional>

namespace tv::compute::detail {

/// Runs work(first, last) for chunks of `chunk` items covering 1..n, on the calling thread and
/// on up to threads - 1 helper threads, and calls done(i) on the calling thread for i = 1..n in
/// order, as soon as the chunk holding i and all before it are finished. `work` must not throw
/// (an escape ends the program); an exception from `done` stops the helpers, which finish the
/// chunk in hand, and goes on to the caller. Every item is computed by `work` exactly once
/// unless `done` throws first.
void ordered_parallel(std::int64_t n, std::int64_t chunk, unsigned threads,
                      const std::function<void(std::int64_t first, std::int64_t last)>& work,
                      const std::function<void(std::int64_t i)>& done);

/// The number of threads for heavy loops: the processor's, at least 1 and at most 8.
unsigned worker_threads();

}  // namespace tv::compute::detail
