#pragma once

#include <QtGlobal>

/// The part of the recordings that is drawn. Times count from the start of each examination, so that one frame serves
/// all of them.
struct TimeFrame {
    bool contains(qint64 timeMs) const { return startMs <= timeMs && timeMs <= endMs; }

    bool operator==(const TimeFrame &) const = default;

    qint64 startMs = 0;
    qint64 endMs = 0; ///< the last millisecond that belongs to the frame
};
