// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/TimeFrame.h"

#include <QList>

namespace chart {

inline constexpr int binCount = 2000; ///< of each curve: one bin for each pixel column

/// How times of a frame fall into bins.
struct BinScale {
    bool operator==(const BinScale &) const = default;

    double startMs = 0;
    double msPerBin = 1;
    double half = 0; ///< whole bins by which an event is widened to both sides
};

/// @param windowMs  below 1 it counts as 10.
///
/// The window is narrowed by 2 bins on either side and covers about twice its length, which is kept; the textbook form
/// of a moving window reaches half of its length to either side.
BinScale binScale(TimeFrame frame, int windowMs);

/// Bins of an event, both ends belong to it; without any where `last` is below `first`.
struct BinRange {
    bool operator==(const BinRange &) const = default;

    int first = 0;
    int last = -1;
};

/// At least one bin unless the event lies behind the frame; what lies beyond the bins is dropped.
BinRange binsOf(const BinScale &scale, qint64 startMs, double durationMs);

/// Adds the weight to each bin of the range.
void addEvent(QList<double> &bins, BinRange range, double weight);

/// A curve without events.
QList<double> emptyBins();

/// The largest of the values, at least 0.
double largest(const QList<double> &bins);

} // namespace chart
