// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/MeanShiftClusterBuilder.h"

#include "base/Messages.h"
#include "base/Progress.h"
#include "clustering/ClusterSort.h"
#include "clustering/MeanShiftClustering.h"

#include <algorithm>
#include <optional>

namespace {

std::vector<double> centroidsOf(const QList<Fixation> &fixations)
{
    std::vector<double> data;
    data.reserve(2 * static_cast<size_t>(fixations.size()));
    for (const Fixation &fixation : fixations) {
        data.push_back(fixation.mean.x());
        data.push_back(fixation.mean.y());
    }
    return data;
}

} // namespace

MeanShiftClusterBuilder::MeanShiftClusterBuilder(EyeData &stream, const MeanShiftClusterParameters &parameters,
                                                 ShowProgress showProgress)
{
    const qsizetype count = stream.scanpath.size();
    if (count == 0) {
        messages::information(QStringLiteral("No fixations found. Cannot calculate clusters."),
                              QStringLiteral("Please calculate fixations first."));
        return;
    }
    // Shown while the points climb, too: that is what takes long. Without progress of its own, that of the caller is
    // kept alive.
    std::optional<Progress> progress;
    MeanShiftClustering clustering;
    clustering.arrived = [&] { progress ? progress->advance() : Progress::refresh(); };
    const auto steps = static_cast<int>(count);
    if (showProgress == ShowProgress::Yes)
        progress.emplace(QStringLiteral("Generate data vector, please wait."), steps);
    clustering.cluster(centroidsOf(stream.scanpath), parameters.radiusPx, parameters.rate, parameters.iterations, 0);
    progress.reset();
    if (showProgress == ShowProgress::Yes)
        progress.emplace(QStringLiteral("Filterng clusters, please wait."), steps); // sic
    const QList<QList<Fixation>> groups = groupsByLabel(stream.scanpath, clustering.labels);
    progress.reset();
    stream.fixationClusters << clustersOfGroups(groups, parameters.minimumFixations);
    sortBySize(stream.fixationClusters);
}

QList<QList<Fixation>> groupsByLabel(QList<Fixation> &fixations, const std::vector<double> &labels)
{
    QList<QList<Fixation>> groups;
    const qsizetype labelled = std::min(fixations.size(), static_cast<qsizetype>(labels.size()));
    for (qsizetype i = 0; i < labelled; ++i) {
        const auto group = static_cast<qsizetype>(labels[static_cast<size_t>(i)]) - 1;
        if (groups.size() <= group)
            groups.resize(group + 1);
        groups[group] << fixations[i];
        fixations[i].cluster = static_cast<int>(group);
    }
    return groups;
}

QList<FixationCluster> clustersOfGroups(const QList<QList<Fixation>> &groups, int minimumFixations)
{
    Progress progress(QStringLiteral("Calculate PCA for clusters, please wait."), static_cast<int>(groups.size()));
    QList<FixationCluster> clusters;
    for (const QList<Fixation> &group : groups) {
        progress.advance();
        if (group.isEmpty())
            qWarning("Empty cluster constructed!");
        if (group.size() < minimumFixations)
            continue;
        FixationCluster cluster = FixationCluster::gathered(group);
        if (cluster.samples.isEmpty())
            continue;
        cluster.mean = meanOf(cluster.samples);
        const PrincipalAxes axes = principalAxes(cluster.samples);
        cluster.majorAxis = axes.major;
        cluster.minorAxis = axes.minor;
        clusters << cluster;
    }
    return clusters;
}
