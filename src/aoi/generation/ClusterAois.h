// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/generation/GeneratedAoi.h"
#include "model/FixationCluster.h"

/// An area for each cluster, named "ClusterAOI(1)" and so on in their order: the ellipse about its mean with twice its
/// principal axes, that is two standard deviations of its samples.
QList<GeneratedAoi> clusterAois(const QList<CumulativeCluster> &clusters);

/// Vertices of an ellipse in whole pixels, truncated towards zero, from the end of the first axis on.
///
/// @param first, second  the axes from the centre, px; of the second one only the length counts.
/// @param steps          at least 1. The walk ends when the angle has passed the full circle, so that rounding may give
///                       steps + 1 vertices, the last one where the first is.
QPolygon ellipsePolygon(QPoint center, QVector2D first, QVector2D second, int steps);
