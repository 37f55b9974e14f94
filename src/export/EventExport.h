// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Examination.h"
#include "model/TimeFrame.h"

/// What the summary below an events table needs of the walk.
struct EventSums {
    bool operator==(const EventSums &) const = default;

    qint64 fixations = 0;
    qint64 fixationDurationMs = 0;
    double fixationAreaPx2 = 0; ///< pi times the lengths of both principal axes
    qint64 saccades = 0;
    double saccadeDurationMs = 0; ///< whole; damaged clocks can make it too large for an integer
    double saccadeLengthPx = 0;
    qint64 directedSaccades = 0;   ///< those that have an angle
    double saccadeAngleDegree = 0; ///< over the directed saccades
};

struct EventList {
    QList<EventRow> rows; ///< in the order of the walk
    EventSums sums;
};

/// Direction from one fixation to the next in degrees: 0 to the right, 90 downwards on the screen, 180 to the left, 270
/// upwards. Not a number where the two lie on one point.
double saccadeAngleDegree(QPoint from, QPoint to);

/// Fixations, the saccades between them and the stretches without valid samples, as one walk over the samples in file
/// order. Linear in the number of samples.
///
/// Samples and fixations outside the frame do not take part. A saccade comes from the gap between two fixations; its
/// onset is the first valid sample after the earlier one, its count that of the valid samples between them. A stretch
/// without valid samples that has not ended with the last sample makes no row.
EventList eventsOf(const EyeData &stream, TimeFrame frame);

/// The first line of an events file.
QString eventHeader();

/// What the events file holds of one stream of one examination: a row for each event, the means, who was recorded.
/// Numbers have a decimal comma; a mean over nothing is "nan". Texts stand in double quotes as they are.
QString eventBlock(const Examination &examination, const EventList &events);
