// Items computed on several threads come back once each, in order, on the calling thread.
#include "compute/fourier/ordered_parallel.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

namespace tv::compute::detail {
namespace {

TEST(OrderedParallel, EveryItemOnceAndInOrder) {
    for (unsigned threads : {1u, 2u, 5u}) {
        for (std::int64_t chunk : {1, 7, 1000}) {
            const std::int64_t n = 997;
            std::vector<std::atomic<int>> computed(n + 1);
            std::vector<std::int64_t> order;
            const auto caller = std::this_thread::get_id();
            ordered_parallel(
                n, chunk, threads,
                [&](std::int64_t first, std::int64_t last) {
                    for (std::int64_t i = first; i <= last; ++i) ++computed[static_cast<std::size_t>(i)];
                },
                [&](std::int64_t i) {
                    EXPECT_EQ(std::this_thread::get_id(), caller);
                    EXPECT_EQ(computed[static_cast<std::size_t>(i)].load(), 1);  // done before it is handed over
                    order.push_back(i);
                });
            ASSERT_EQ(order.size(), static_cast<std::size_t>(n)) << threads << " " << chunk;
            for (std::int64_t i = 1; i <= n; ++i) EXPECT_EQ(order[static_cast<std::size_t>(i - 1)], i);
        }
    }
}

TEST(OrderedParallel, NothingToDoAndAFailureInTheHandOver) {
    int calls = 0;
    ordered_parallel(0, 4, 2, [&](std::int64_t, std::int64_t) { ++calls; }, [&](std::int64_t) { ++calls; });
    EXPECT_EQ(calls, 0);
    std::int64_t last = 0;
    EXPECT_THROW(ordered_parallel(
                     100000, 3, 2, [](std::int64_t, std::int64_t) {},
                     [&](std::int64_t i) {
                         last = i;
                         if (i == 50) throw std::runtime_error("stop");
                     }),
                 std::runtime_error);
    EXPECT_EQ(last, 50);
    EXPECT_GE(worker_threads(), 1u);
}

}  // namespace
}  // namespace tv::compute::detail
