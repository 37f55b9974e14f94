// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SideBySide.h"
#include "clustering/ClusterParameters.h"
#include "clustering/ClusterSettingsModel.h"

#include <QString>

class DataModel;

/// The methods; the values are those of the stored calculation type.
enum class ClusterMethod { Standard = 0, MeanShift = 1, Overlap = 2 };

/// The method of a calculation type; any other number means the standard method.
ClusterMethod clusterMethod(int calculationType);

/// The parameters of a calculation type. Those of the overlap method are not stored; where it is meant, they are given.
ClusterParameters clusterParameters(int calculationType, const ClusterSettingsModel &settings,
                                    const OverlapClusterParameters &overlap);

/// Clusters the fixations of all checked examinations, the right eye first, then left eye and mean.
///
/// The clusters of these eyes are replaced, and so is what was found for fixations and clusters in the pooled left,
/// right and mean containers; the pooled dominant container is left alone. Each examination keeps what was done as its
/// `clusterCalculationInfo`. For the overlap method `outliers` has no effect.
///
/// Examinations are worked on side by side; result and messages do not depend on how many threads do it. Messages come
/// at the end, each once.
/// @return false, after a message, where no examination is checked.
bool calculateClusters(DataModel &model, const ClusterParameters &parameters, int threads = coreCount());

/// What was done, for the user: method, parameters and the numbers of clusters.
QString clusterResultText(const ClusterParameters &parameters, qsizetype left, qsizetype right, qsizetype mean);

/// Whether an examination is checked; if not, the user is told.
bool hasCheckedExamination(const DataModel &model);
