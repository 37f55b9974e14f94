// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/GazePoint.h"

#include <QList>
#include <QPointF>

#include <vector>

/// One sample on its way through the detection: the raw one, and the position that the detector looks at.
struct WorkSample {
    const GazePoint *source = nullptr; ///< raw sample, not owned; its time is the time of the record
    double x = 0;                      ///< px, raw, interpolated or filtered
    double y = 0;                      ///< px
    bool filtered = false;             ///< the position comes from an interpolation or a median filter
    bool usable = false;               ///< the detector may take the record for a valid sample
};

/// Makes the record of each raw sample, in order. A loss of tracking of at most `maximumGapMs` is bridged by
/// interpolation, so that it vanishes for the detector; the samples of a longer one stay unusable. Linear in samples.
///
/// Where not a single sample is valid, a warning is shown for each sample that is interpolated.
std::vector<WorkSample> prepareSamples(const QList<GazePoint> &rawSamples, qint64 maximumGapMs);

/// Time between the valid samples around an invalid one, in ms. Where there is none on a side, the first or the last
/// sample stands in.
qint64 gapDuration(const QList<GazePoint> &rawSamples, qsizetype index);

/// Position of an invalid sample on the straight line, in time, between the valid samples around it. With only one of
/// them its position is held, and where both have the same time that of the left one. Without any valid sample a
/// warning is shown and the position is (0,0); asked for a valid sample, it shows a warning and goes on.
QPointF interpolateGap(const QList<GazePoint> &rawSamples, qsizetype index);

/// Replaces each usable record by the median of the `length` records around it. In place: a window sees the records
/// before it already filtered. An even length is increased by 1 and one below 1 filters nothing, both with a warning;
/// length 1 filters nothing.
void medianFilter(std::vector<WorkSample> &workSamples, int length);

/// The record at `index` with the median position, per axis, of the usable records from `start` to `end`, both included
/// and clamped to the list; (0,0) where none is usable. An unusable record comes back unchanged.
///
/// @param end    -1 means the last record.
/// @param index  -1 asks for the median alone: the result has no source.
WorkSample medianOfWindow(const std::vector<WorkSample> &workSamples, qsizetype start, qsizetype end, qsizetype index);
