// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/client/Heartbeater.h"

namespace gtl {

using Lock = boost::unique_lock<boost::mutex>;

Heartbeater::~Heartbeater()
{
    try {
        stop();
        join();
    } catch (const boost::thread_exception &) {
        // The thread never waits for itself here, and whatever else refuses to be joined has ended already.
    }
}

void Heartbeater::start()
{
    stop();
    join();
    {
        const Lock lock(m_mutex);
        m_isRunning = true;
        m_intervalMs = defaultIntervalMs;
    }
    m_thread = boost::thread(&Heartbeater::beat, this);
}

void Heartbeater::stop()
{
    const Lock lock(m_mutex);
    m_isRunning = false;
    m_changed.notify_all();
}

void Heartbeater::join()
{
    if (m_thread.joinable())
        m_thread.join();
}

void Heartbeater::setInterval(int intervalMs)
{
    const Lock lock(m_mutex);
    if (intervalMs < 1)
        return;
    m_intervalMs = intervalMs;
    m_changed.notify_all();
}

int Heartbeater::interval() const
{
    const Lock lock(m_mutex);
    return m_intervalMs;
}

void Heartbeater::beat()
{
    do {
        notify([](IHeartbeatListener &listener) { listener.onBeat(); });
    } while (sleep());
}

/// Until the interval is over, counted from now, or the thread is to end. Returns whether to go on.
bool Heartbeater::sleep()
{
    Lock lock(m_mutex);
    const auto begin = boost::chrono::steady_clock::now();
    while (m_isRunning) {
        const auto deadline = begin + boost::chrono::milliseconds(m_intervalMs);
        if (m_changed.wait_until(lock, deadline) == boost::cv_status::timeout &&
            boost::chrono::steady_clock::now() >= begin + boost::chrono::milliseconds(m_intervalMs))
            break;
    }
    return m_isRunning;
}

} // namespace gtl
