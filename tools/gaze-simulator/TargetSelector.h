// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gaze-simulator/RandomSource.h"
#include "gaze-simulator/SaliencyMap.h"

/// Chooses where the gaze goes next: salient places near by win, and places seen lately are left out for a while
/// (inhibition of return; Klein 2000, Trends in Cognitive Sciences 4).
class TargetSelector {
public:
    /// @param map  of a canvas of at least one pixel.
    TargetSelector(SaliencyMap map, double pixelsPerDegree, quint64 seed);

    /// A place on the canvas, px. `from` is then counted as seen.
    QPointF next(const QPointF &from);

private:
    void inhibit(const QPointF &seen);
    size_t drawCell(const QPointF &from);

    SaliencyMap m_map;
    double m_pixelsPerDegree;
    RandomSource m_random;
    std::vector<double> m_inhibition; // a cell each: 0 free to 1 shut
    std::vector<double> m_sums;       // running sum of the chances
};
