// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterParameters.h"
#include "model/EyeData.h"

/// Clusters of fixations whose ellipses overlap: the fixation that most others touch and these others are one, then the
/// same among the fixations that touch none of them.
///
/// Appends the clusters to `fixationClusters` of the stream, and sets the `cluster` of its fixations: the number of the
/// group, from 1, or 0. Groups that are no clusters have numbers, too. The fixations in a cluster have its number.
///
/// @param parameters        its `outliers` play no part here.
void buildOverlapClusters(EyeData &stream, const OverlapClusterParameters &parameters);

/// The same for pooled fixations of several examinations; where `outliers` is set, a group is a cluster only if all
/// examinations but so many have at least the minimum of fixations in it.
///
/// @param examinations  number of the examinations that were pooled.
void buildPooledOverlapClusters(EyeData &stream, const OverlapClusterParameters &parameters, int examinations);
