// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>

/// What one eye gives at one moment, as a tracker reports it.
struct EyeSample {
    QPointF position;       ///< px of the stimulus; 0, 0 where invalid
    double pupilWidth = 0;  ///< px of the tracker's camera; 0 where invalid
    double pupilHeight = 0; ///< as the width
    bool valid = false;
};

/// What really happened; the codes are those of hand-coded recordings.
enum class EventLabel { Fixation = 1, Saccade = 2, Blink = 5, Undefined = 6 };

struct SimulatedSample {
    qint64 timeMs = 0; ///< clock of the recorder, rounded to ms: above 1000 Hz times repeat
    EyeSample left;
    EyeSample right;
    EventLabel label = EventLabel::Fixation;
};
