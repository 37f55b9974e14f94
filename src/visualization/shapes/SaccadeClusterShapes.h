// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/SaccadeClustering.h"
#include "visualization/shapes/Drawing.h"

/// How saccade clusters are drawn. The values are those of the panel's list.
enum class SaccadeClusterMode { None = 0, Lines = 1, SingleLine = 2 };

struct SaccadeClusterStyle {
    bool operator==(const SaccadeClusterStyle &) const = default;

    int lineWidthPx = 3;
    bool showArrowTips = false; ///< mode "Lines" only
    int minimumQuantity = 1;    ///< clusters with fewer saccades are not drawn
};

/// A colour for each of n clusters: hues in equal whole steps around the circle, from 0. Above 360 clusters the hues
/// repeat.
QList<QColor> saccadeClusterColors(qsizetype n);

/// The straight line that stands for a cluster of at least one saccade.
struct SaccadeClusterLine {
    bool operator==(const SaccadeClusterLine &) const = default;

    QPoint from;
    QPoint to;
};

/// Stretches the line of the first saccade by the ends of all. Of each end the nearer end of the line gives way if the
/// farther one is farther from it than the line was long when that was last noted, in whole pixels. At the first end
/// of the line the length is noted as 0, so that the next one always counts. That is kept: with the new length noted at
/// both ends the line would be a longer one, and nearer to the longest of the cluster.
SaccadeClusterLine singleLine(const QList<SaccadeVector> &cluster);

/// The arrows of a mode in the colours of their clusters; a cluster keeps its colour whichever others are hidden.
QList<ArrowShape> saccadeClusterArrows(const SaccadeClusterList &clusters, SaccadeClusterMode mode,
                                       const SaccadeClusterStyle &style);
