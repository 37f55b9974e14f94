// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"
#include "statistics/ClusterTransitions.h"
#include "visualization/selection/DataSelection.h"

/// Which clusters a mode shows.
enum class ClusterSource {
    Own,               ///< those of the stream itself
    Cumulative,        ///< those of the pooled fixations of several examinations
    OwnThenCumulative, ///< one list of both
};

/// The clusters of a stream. The place in the list is the number of a cluster on the screen.
QList<FixationCluster> clustersToDraw(ClusterSource source, const ExaminationEye &stream, const DataModel &model);

/// The gaze that moves between these clusters: that of the stream for its own ones, that of each pooled recording for
/// cumulative ones. For both kinds each recording counts once, the examination itself by its own stream. The walks
/// refer to the model.
QList<GazeWalk> walksToCount(ClusterSource source, const ExaminationEye &stream, const DataModel &model);
