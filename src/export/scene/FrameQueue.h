// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <queue>
#include <thread>

/// Hands images to a thread that takes them in their order. Who adds one waits while too many are under way.
class FrameQueue {
public:
    /// @param take  called on the thread; what it refers to must outlive the queue.
    explicit FrameQueue(std::function<void(const QImage &)> take);
    /// Returns when all images are taken.
    ~FrameQueue();
    FrameQueue(const FrameQueue &) = delete;
    FrameQueue &operator=(const FrameQueue &) = delete;

    void add(const QImage &image);

private:
    void run();

    std::function<void(const QImage &)> m_take;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::queue<QImage> m_waiting;
    bool m_isComplete = false;
    std::thread m_thread; ///< last: it uses the others
};
