#include "model/FixationCluster.h"

#include <algorithm>

FixationCluster::FixationCluster(QList<Fixation> fixations_, QPoint center)
{
    if (fixations_.isEmpty()) {
        qWarning("WARNING: Cluster of size zero constructed!");
        return;
    }
    *this = gathered(std::move(fixations_));
    mean = center.isNull() ? meanOf(samples) : center;
    variance = varianceAbout(mean, samples);
    const PrincipalAxes axes = principalAxes(samples);
    majorAxis = axes.major;
    minorAxis = axes.minor;
}

FixationCluster FixationCluster::gathered(QList<Fixation> fixations)
{
    FixationCluster cluster;
    QList<GazePoint> all;
    for (const Fixation &fixation : std::as_const(fixations))
        all.append(fixation.samples);
    cluster.extend(all);
    cluster.fixations = std::move(fixations);
    return cluster;
}

qsizetype FixationCluster::fixationsWithin(qint64 startMs, qint64 endMs) const
{
    return std::count_if(fixations.cbegin(), fixations.cend(),
                         [&](const Fixation &fixation) { return fixation.isWithin(startMs, endMs); });
}
