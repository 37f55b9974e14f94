// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/client/Listeners.h"
#include "recording/client/Observable.h"

#include <boost/thread/condition_variable.hpp>
#include <boost/thread/mutex.hpp>
#include <boost/thread/thread.hpp>

namespace gtl {

/// A thread that calls its listeners at an interval, so that the server knows the client to be alive.
class Heartbeater : public Observable<IHeartbeatListener> {
public:
    static constexpr int defaultIntervalMs = 1000;

    Heartbeater() = default;
    /// Stops and waits for the thread. Not from within a listener's call.
    ~Heartbeater();
    Heartbeater(const Heartbeater &) = delete;
    Heartbeater &operator=(const Heartbeater &) = delete;

    /// Beats at once and then at the default interval. Waits for a former thread to end.
    void start();
    /// The thread ends soon; does not wait for it, so that any thread may call it.
    void stop();
    /// Waits for the thread to end.
    void join();

    /// Holds from the last beat on. Intervals below 1 ms are no intervals and change nothing.
    void setInterval(int intervalMs);
    int interval() const;

private:
    void beat();
    bool sleep();

    mutable boost::mutex m_mutex; ///< of the two below
    int m_intervalMs = defaultIntervalMs;
    bool m_isRunning = false;
    boost::condition_variable m_changed;
    boost::thread m_thread;
};

} // namespace gtl
