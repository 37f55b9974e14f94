#include "visualization/selection/ClusterSelection.h"

namespace {

/// The saccades of the eye in another examination; null where the list of examinations is shorter.
const QList<Saccade> *saccadesOf(int examination, Eye eye, const DataModel &model)
{
    const QList<Examination> &examinations = model.examinations();
    if (examination < 0 || examination >= examinations.size())
        return nullptr;
    return &examinations[examination].stream(eye).saccades;
}

/// A walk for each run of fixations of one examination, without those of the one left out.
QList<GazeWalk> pooledWalks(Eye eye, const DataModel &model, int leftOut)
{
    const QList<Fixation> &pooled = model.pooled(eye).scanpath;
    QList<GazeWalk> walks;
    for (auto begin = pooled.cbegin(); begin != pooled.cend();) {
        const int examination = begin->examination;
        const auto end = std::find_if(begin, pooled.cend(),
                                      [&](const Fixation &fixation) { return fixation.examination != examination; });
        if (leftOut < 0 || examination != leftOut)
            walks << GazeWalk{{begin, end}, saccadesOf(examination, eye, model)};
        begin = end;
    }
    return walks;
}

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
        return pooledWalks(stream.eye, model, -1);
    case ClusterSource::OwnThenCumulative:
        return QList<GazeWalk>{own} << pooledWalks(stream.eye, model,
                                                   placeOf(stream.examination, model.examinations()));
    }
    return {own};
}
