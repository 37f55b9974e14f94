// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SideBySide.h"

#include "base/Progress.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <vector>

namespace {

constexpr std::chrono::milliseconds refreshInterval(50);

class Pieces {
public:
    Pieces(qsizetype count, const std::function<void(qsizetype)> &work)
        : m_work(work)
        , m_done(static_cast<std::size_t>(count))
    {
    }
    ~Pieces() { m_next = m_done.size(); } // nobody begins what nobody waits for
    Pieces(const Pieces &) = delete;
    Pieces &operator=(const Pieces &) = delete;

    void start(qsizetype threads)
    {
        for (qsizetype i = 0; i < threads; ++i)
            m_threads.emplace_back([this] { workOnAll(); });
    }

    void waitFor(qsizetype index)
    {
        std::future<void> done = m_done[static_cast<std::size_t>(index)].get_future();
        while (done.wait_for(refreshInterval) != std::future_status::ready)
            Progress::refresh();
        done.get();
    }

private:
    void workOnAll()
    {
        const Progress::Hidden hidden;
        for (std::size_t i = m_next++; i < m_done.size(); i = m_next++) {
            try {
                m_work(static_cast<qsizetype>(i));
                m_done[i].set_value();
            } catch (...) {
                m_done[i].set_exception(std::current_exception());
            }
        }
    }

    const std::function<void(qsizetype)> &m_work;
    std::vector<std::promise<void>> m_done;
    std::atomic<std::size_t> m_next = 0;
    std::vector<std::jthread> m_threads; ///< the last member: they are joined before the others go
};

} // namespace

int coreCount()
{
    return static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
}

void sideBySide(qsizetype count, int threads, const std::function<void(qsizetype)> &work,
                const std::function<void(qsizetype)> &taken)
{
    if (threads <= 1 || count <= 1) {
        for (qsizetype i = 0; i < count; ++i) {
            work(i);
            taken(i);
        }
        return;
    }
    Pieces pieces(count, work);
    pieces.start(std::min<qsizetype>(threads, count));
    for (qsizetype i = 0; i < count; ++i) {
        pieces.waitFor(i);
        taken(i);
    }
}
