// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/scene/FrameQueue.h"

namespace {

constexpr std::size_t mostWaiting = 2; // an image of the canvas has 16 MB

} // namespace

FrameQueue::FrameQueue(std::function<void(const QImage &)> take) : m_take(std::move(take)), m_thread([this] { run(); })
{
}

FrameQueue::~FrameQueue()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isComplete = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void FrameQueue::add(const QImage &image)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_waiting.size() < mostWaiting; });
    m_waiting.push(image);
    m_changed.notify_all();
}

void FrameQueue::run()
{
    for (;;) {
        QImage image;
        {
            std::unique_lock lock(m_mutex);
            m_changed.wait(lock, [this] { return m_isComplete || !m_waiting.empty(); });
            if (m_waiting.empty())
                return;
            image = m_waiting.front();
            m_waiting.pop();
            m_changed.notify_all();
        }
        m_take(image);
    }
}
