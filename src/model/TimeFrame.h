// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/ScanpathSection.h"

/// A part of the recordings in ms, both ends belong to it. Times count from the start of each examination, so that one
/// frame serves all of them.
struct TimeFrame {
    bool contains(qint64 timeMs) const { return startMs <= timeMs && timeMs <= endMs; }

    /// Whether the section begins and ends inside. One without samples lies nowhere.
    bool holds(const ScanpathSection &section) const
    {
        return !section.samples.isEmpty() && startMs <= section.firstTime() && section.lastTime() <= endMs;
    }

    /// Events of the frame times this are events per minute; 1 for a frame without duration.
    double perMinute() const
    {
        constexpr double msPerMinute = 60000.0;
        const double durationMs = static_cast<double>(endMs) - static_cast<double>(startMs);
        return durationMs > 0 ? msPerMinute / durationMs : 1.0;
    }

    bool operator==(const TimeFrame &) const = default;

    qint64 startMs = 0;
    qint64 endMs = 0;
};
