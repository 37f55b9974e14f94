// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>

/// A movement of the eye from one fixation to the next, or several of them in the same direction joined to one.
struct SaccadeVector {
    SaccadeVector() = default;
    /// Angle and length follow from both ends. Times are those of the fixation that the movement leads to.
    SaccadeVector(QPoint start, QPoint end, qint64 startTime, qint64 endTime);

    bool operator==(const SaccadeVector &) const = default;

    QPoint start;         ///< canvas px
    QPoint end;           ///< canvas px
    qint64 startTime = 0; ///< ms
    qint64 endTime = 0;   ///< ms
    int angle = 0;        ///< degrees, 0 to 360, clockwise on the screen; see `directionOf`
    int length = 0;       ///< px, cut to whole pixels
};

/// Direction of a movement in whole degrees, clockwise on the screen from the right. Straight to the right, and a
/// movement without length, is 360: only directions above 0 stay as they are. A direction that turns by less than one
/// degree clockwise from there is 0.
int directionOf(QPoint start, QPoint end);
