#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

namespace mintaro {

/// Calls `work` with each number below `count`, on as many threads as the machine has processors; the caller's is one
/// of them. Comes back when all is done. `work` must not throw.
template <typename Work>
void forEachInParallel(std::size_t count, const Work &work)
{
    std::atomic<std::size_t> next = 0;
    const auto run = [&] {
        for (std::size_t i = next++; i < count; i = next++)
            work(i);
    };
    std::vector<std::jthread> helpers;
    const std::size_t threads = std::min<std::size_t>(count, std::thread::hardware_concurrency());
    for (std::size_t i = 1; i < threads; ++i)
        helpers.emplace_back(run);
    run();
}

} // namespace mintaro
