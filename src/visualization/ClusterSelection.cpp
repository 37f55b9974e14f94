#include "visualization/ClusterSelection.h"

namespace {

using Pool = DataModel::Pool;

Pool poolOf(EyeColor eye, EyeMode mode)
{
    if (mode == EyeMode::showMean)
        return Pool::Mean;
    switch (eye) {
    case EyeColor::Left:
        return Pool::Left;
    case EyeColor::Right:
        return Pool::Right;
    case EyeColor::Dominant:
        break;
    }
    return Pool::Dominant;
}

/// The saccades of the same eye in another examination; null where the list of examinations is shorter.
const QList<Saccade> *saccadesOf(int examination, EyeColor eye, const DrawingContext &context)
{
    const QList<Examination> &examinations = context.model.examinations();
    if (examination < 0 || examination >= examinations.size())
        return nullptr;
    for (const SelectedEye &other : eyesToDraw(examinations[examination], context.eyeMode)) {
        if (other.color == eye)
            return &other.data->saccades;
    }
    return nullptr;
}

/// A walk for each run of fixations of one examination, without those of the one left out.
QList<GazeWalk> pooledWalks(const SelectedEye &eye, const DrawingContext &context, int leftOut)
{
    const QList<Fixation> &pooled = pooledEye(eye, context).scanpath;
    QList<GazeWalk> walks;
    for (auto begin = pooled.cbegin(); begin != pooled.cend();) {
        const int examination = begin->examination;
        const auto end = std::find_if(begin, pooled.cend(),
                                      [&](const Fixation &fixation) { return fixation.examination != examination; });
        if (leftOut < 0 || examination != leftOut)
            walks << GazeWalk{{begin, end}, saccadesOf(examination, eye.color, context)};
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

const EyeData &pooledEye(const SelectedEye &eye, const DrawingContext &context)
{
    return context.model.pooledEyeData(poolOf(eye.color, context.eyeMode));
}

QList<FixationCluster> clustersToDraw(ClusterSource source, const SelectedEye &eye, const DrawingContext &context)
{
    QList<FixationCluster> clusters;
    if (source != ClusterSource::Cumulative)
        clusters = eye.data->fixationClusters;
    if (source != ClusterSource::Own)
        clusters << pooledEye(eye, context).fixationClusters;
    return clusters;
}

QList<GazeWalk> walksToCount(ClusterSource source, const ExaminationEye &stream, const DrawingContext &context)
{
    const auto &[examination, eye] = stream;
    const GazeWalk own{eye.data->scanpath, &eye.data->saccades};
    switch (source) {
    case ClusterSource::Own:
        break;
    case ClusterSource::Cumulative:
        return pooledWalks(eye, context, -1);
    case ClusterSource::OwnThenCumulative:
        return QList<GazeWalk>{own} << pooledWalks(eye, context, placeOf(examination, context.model.examinations()));
    }
    return {own};
}
