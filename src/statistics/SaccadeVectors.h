// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/EyeData.h"
#include "model/TimeFrame.h"

/// The way of the eye from one fixation to the next. Lists of saccades are flat: three consecutive numbers for each, in
/// the order of the members.
struct SaccadeTriple {
    bool operator==(const SaccadeTriple &) const = default;

    double angle = 0;    ///< radians, 0 to 2 pi, counter-clockwise on the screen from the right
    double length = 0;   ///< px, above 0
    double duration = 0; ///< ms from the last sample of one fixation to the first of the next
};

/// Number of saccades in a flat list.
qsizetype tripleCount(const QList<double> &triples);

/// @param index  0 to tripleCount - 1.
SaccadeTriple tripleAt(const QList<double> &triples, qsizetype index);

/// The saccades of one stream as a flat list of triples: one for each two neighbours of its scanpath that both begin
/// and end inside the frame. A pair with the same mean has no direction and is left out of the list. One stream of one
/// recording at a time: the last fixation of one and the first of another are never linked.
QList<double> saccadeVectors(const EyeData &eye, TimeFrame frame);

/// A saccade and when it was.
struct TimedSaccade {
    bool operator==(const TimedSaccade &) const = default;

    qint64 startMs = 0;  ///< last sample of the fixation before it
    double length = 0;   ///< px
    double duration = 0; ///< ms
};

/// The same saccades in the order of time.
QList<TimedSaccade> timedSaccades(const EyeData &eye, TimeFrame frame);

/// Saccades by direction. Each list has a value for each bin, counter-clockwise from the right.
struct AngleStarBins {
    bool operator==(const AngleStarBins &) const = default;

    QList<double> quantity;     ///< number of saccades
    QList<double> meanLength;   ///< px; 0 without saccades
    QList<double> meanDuration; ///< ms; 0 without saccades
};

/// Sorts saccades into directions of equal width.
///
/// @param triples  flat, as `saccadeVectors` makes them; those of several streams may be joined.
/// @param bins  1 to 360; what lies beyond counts as the nearest of these.
AngleStarBins angleStarBins(const QList<double> &triples, int bins);
