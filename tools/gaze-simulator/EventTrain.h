// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gaze-simulator/RandomSource.h"

/// Events that come at random, without memory of the last one, such as blinks.
class EventTrain {
public:
    struct Timing {
        double perMinute = 0; ///< mean over a long time, >= 0; 0 means never
        double meanMs = 0;    ///< mean duration
        double spread = 0;    ///< standard deviation of the logarithm of the duration
        double pauseMs = 0;   ///< least time from the end of one to the start of the next
    };

    EventTrain(const Timing &timing, quint64 seed, RandomSource::Stream stream);

    /// Makes the event around this time the current one, ms; times must not run backwards. An event stays current for
    /// half the pause after its end.
    void advance(double timeMs);

    /// The event that is on or comes next.
    double startMs() const { return m_startMs; }
    double endMs() const { return m_endMs; }
    bool isOn(double timeMs) const { return m_startMs <= timeMs && timeMs < m_endMs; }

    /// A number in [0, 1) that belongs to the current event.
    double mark() const { return m_mark; }

private:
    void schedule(double fromMs);

    Timing m_timing;
    RandomSource m_random;
    double m_startMs = 0;
    double m_endMs = 0;
    double m_mark = 0;
};
