// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/timeline/TimeScale.h"

#include <QFontMetrics>
#include <QRect>
#include <QString>

/// A text on the strip of the timeline.
struct TimeLabel {
    QRect box;
    Qt::Alignment alignment;
    QString text;

    bool operator==(const TimeLabel &) const = default;
};

/// The chosen frame in words.
QString frameText(const TimeScale &scale);

/// The labels of a strip of this size, none over another or beyond its ends: below, times of ticks, as many as fit;
/// above, the chosen frame, at its start or as far to the left of it as it must, and the length of the scale at the
/// right, where the frame leaves it room.
QList<TimeLabel> timeLabels(const TimeScale &scale, QSize strip, const QFontMetrics &font);
