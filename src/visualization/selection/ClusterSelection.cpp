// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/selection/ClusterSelection.h"

namespace {

int placeOf(const Examination *examination, const QList<Examination> &examinations)
{
    const auto found = std::find_if(examinations.cbegin(), examinations.cend(),
                                    [&](const Examination &other) { return &other == examination; });
    return found == examinations.cend() ? -1 : static_cast<int>(found - examinations.cbegin());
}

} // namespace

QList<FixationCluster> clustersToDraw(ClusterSource source, const ExaminationEye &stream, const DataModel &model)
{
    QList<FixationCluster> clusters;
    if (source != ClusterSource::Cumulative)
        clusters = stream.stream().fixationClusters;
    if (source != ClusterSource::Own)
        clusters << model.pooled(stream.eye).fixationClusters;
    return clusters;
}

QList<GazeWalk> walksToCount(ClusterSource source, const ExaminationEye &stream, const DataModel &model)
{
    const GazeWalk own{stream.stream().scanpath, &stream.stream().saccades};
    switch (source) {
    case ClusterSource::Own:
        break;
    case ClusterSource::Cumulative:
        return pooledWalks(stream.eye, model);
    case ClusterSource::OwnThenCumulative:
        return QList<GazeWalk>{own} << pooledWalks(stream.eye, model,
                                                   placeOf(stream.examination, model.examinations()));
    }
    return {own};
}
