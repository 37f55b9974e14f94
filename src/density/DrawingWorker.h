// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QThread>

#include <memory>
#include <semaphore>
#include <vector>

/// A thread of one drawing step. It lives inside the step: the main thread starts the workers and waits for all.
class DrawingWorker : public QThread {
public:
    /// Starts the workers and returns when all have done their work; what they wrote may be read then.
    template <class Worker>
    static void runAll(const std::vector<std::unique_ptr<Worker>> &workers)
    {
        for (const auto &worker : workers)
            worker->start();
        for (const auto &worker : workers)
            worker->join();
    }

protected:
    /// Reads const data and writes only what this worker owns.
    virtual void work() = 0;

private:
    void run() final
    {
        work();
        m_done.release();
    }

    void join()
    {
        // wait() alone would do, but its ordering lies inside the library, where the thread sanitizer does not see it.
        m_done.acquire();
        wait();
    }

    std::binary_semaphore m_done{0};
};
