// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/selection/ClusterSelection.h"
#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/Drawing.h"

/// What a drawing of transitions shows.
struct TransitionPicture {
    QList<FixationCluster> clusters;
    ClusterTransitions inFrame; ///< between these clusters
    int largestOfRecording = 1; ///< count of the busiest pair without regard to the frame
    double perMinute = 1;       ///< turns counts of the frame into counts per minute
};

/// Modes "transitions" and its cumulative kin: a circle or, for `showGazePoints`, an ellipse for each cluster, with its
/// name for `showOriginalSize`, and on top of them a line for each pair of clusters between which the gaze moved. The
/// busier direction of a pair decides how wide and in which colour it is; the line of the busiest pair is one pixel
/// wider than `stepSize`.
///
/// `heatmapThreashold`, in transitions per minute, hides clusters, and lines to clusters, with fewer of them; with
/// `transitionsOnly` it hides lines of pairs with fewer, and no cluster. A line from a hidden cluster to a shown one
/// stays. A cluster without fixations is never drawn.
Drawing transitionShapes(const TransitionPicture &picture, const VisualizationParameters &parameters);

/// Colour of a line from a to b with the given counts there and back: between the colours for movements to the left and
/// to the right by the share of each. A vertical line counts as one to the right.
QColor directionColor(QPoint from, QPoint to, std::pair<int, int> thereAndBack,
                      const VisualizationParameters &parameters);

/// The transitions between the clusters that the source gives for a stream.
Drawing transitionsBetween(ClusterSource source, const ExaminationEye &stream, const DrawingContext &context);

template <ClusterSource Source>
Drawing transitionsOfEye(const ExaminationEye &stream, const DrawingContext &context)
{
    return transitionsBetween(Source, stream, context);
}
