// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/selection/ClusterSelection.h"
#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/Drawing.h"
#include "visualization/shapes/ShapeStyle.h"

/// The shapes of a list of clusters.
using ClusterPainter = Drawing (*)(const QList<FixationCluster> &, TimeFrame, const ShapeStyle &,
                                   const VisualizationParameters &);

/// Modes "elliptic (pca)" and "cumulative elliptic": an ellipse along the principal axes of each cluster, twice as
/// large as the standard deviation, with its name for `showOriginalSize`. With `showGazePoints` instead the fixations
/// of the frame as dots, each cluster in a colour of its own.
///
/// A cluster without fixations is never drawn, nor one of which the frame holds less than `clusterPercentage`. The
/// numbers are places in the list, whatever is left out.
Drawing clusterEllipses(const QList<FixationCluster> &clusters, TimeFrame frame, const ShapeStyle &style,
                        const VisualizationParameters &parameters);

/// Modes "circular" and "cumulative circle": the same with a circle around the mean; see `clusterDiameter`.
Drawing clusterCircles(const QList<FixationCluster> &clusters, TimeFrame frame, const ShapeStyle &style,
                       const VisualizationParameters &parameters);

/// Pixels. By the time that the gaze spent in the cluster for `durationDependent`, else by the size alone.
int clusterDiameter(const FixationCluster &cluster, const VisualizationParameters &parameters);

/// Where the name of an ellipse stands: to the upper left of it.
QPointF nameOfEllipse(QPoint center, QVector2D major, QVector2D minor);

/// Outline of the dots of a cluster: of ten colours, used in turn, that of its number.
QColor clusterColor(qsizetype number);

/// The clusters that the source gives for a stream, in the colours of its eye and group.
Drawing paintedClusters(ClusterPainter paint, ClusterSource source, const ExaminationEye &stream,
                        const DrawingContext &context);

template <ClusterPainter Paint, ClusterSource Source>
Drawing clustersOfEye(const ExaminationEye &stream, const DrawingContext &context)
{
    return paintedClusters(Paint, Source, stream, context);
}
