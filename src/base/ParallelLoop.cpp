#include "base/ParallelLoop.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <thread>
#include <vector>

void forEachInParallel(std::size_t count, const std::function<void(std::size_t)> &work,
                       const std::function<void()> &done)
{
    std::vector<std::promise<void>> pieces(count);
    std::atomic<std::size_t> next = 0;
    const auto run = [&] {
        for (std::size_t i = next++; i < count; i = next++) {
            work(i);
            pieces[i].set_value();
        }
    };
    const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
    std::vector<std::jthread> workers;
    for (std::size_t i = 0; i < std::min(cores, count); ++i)
        workers.emplace_back(run);
    for (std::promise<void> &piece : pieces) {
        piece.get_future().get();
        done();
    }
}
