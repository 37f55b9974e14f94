// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/EventTrain.h"

#include <algorithm>
#include <limits>

EventTrain::EventTrain(const Timing &timing, quint64 seed, RandomSource::Stream stream)
    : m_timing(timing)
    , m_random(seed, stream)
{
    schedule(0);
}

void EventTrain::advance(double timeMs)
{
    while (m_endMs + m_timing.pauseMs / 2 < timeMs)
        schedule(m_endMs + m_timing.pauseMs);
}

void EventTrain::schedule(double fromMs)
{
    constexpr double minuteMs = 60000;
    constexpr double shortestMeanGapMs = 1;
    if (m_timing.perMinute <= 0) {
        m_startMs = m_endMs = std::numeric_limits<double>::infinity();
        return;
    }
    const double meanGapMs = minuteMs / m_timing.perMinute - m_timing.meanMs - m_timing.pauseMs;
    m_startMs = fromMs + m_random.exponential(std::max(meanGapMs, shortestMeanGapMs));
    m_endMs = m_startMs + m_random.logNormal(m_timing.meanMs, m_timing.spread);
    m_mark = m_random.uniform();
}
