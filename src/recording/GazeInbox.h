// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPointF>

#include <chrono>
#include <mutex>

/// Where the subject looked, and when the bytes came that told so.
struct ArrivedGaze {
    QPointF position; ///< smoothed by the server, screen pixels
    bool isTracked = false;
    std::chrono::steady_clock::time_point arrival;
};

/// Hands gaze from the tracker's thread to the window's: many frames, one call.
class GazeInbox {
public:
    /// Returns whether the window has to be called: not while a call is on its way.
    bool put(const ArrivedGaze &gaze);

    /// What has come since the last call; of a window that was held up for long only the latest.
    QList<ArrivedGaze> take();

private:
    std::mutex m_mutex; ///< of the two below
    QList<ArrivedGaze> m_waiting;
    bool m_isCalled = false;
};
