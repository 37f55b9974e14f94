#pragma once

#include "model/ScanpathSection.h"

/// The part of a recording that an export covers, in ms; both ends belong to it.
struct TimeSpan {
    bool contains(qint64 timeMs) const { return timeMs >= startMs && timeMs <= endMs; }

    /// Whether the whole section lies in the span. A section without samples lies nowhere.
    bool contains(const ScanpathSection &section) const
    {
        return !section.samples.isEmpty() && section.firstTime() >= startMs && section.lastTime() <= endMs;
    }

    qint64 startMs = 0;
    qint64 endMs = 0;
};
