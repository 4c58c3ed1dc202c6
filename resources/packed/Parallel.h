#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

namespace pedl::skin {

/// Calls `work` for every number below `count`, on so many threads at the same time.
template <typename Work> void inParallel(std::size_t count, unsigned threads, Work&& work) {
    std::atomic<std::size_t> next{0};
    std::vector<std::jthread> workers;
    for (unsigned i = 0; i < std::max(1U, threads); ++i)
        workers.emplace_back([&] {
            for (std::size_t index = next++; index < count; index = next++)
                work(index);
        });
}

} // namespace pedl::skin
