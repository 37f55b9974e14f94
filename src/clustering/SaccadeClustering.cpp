// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/SaccadeClustering.h"

#include "base/Messages.h"
#include "base/Progress.h"
#include "model/DataModel.h"

#include <algorithm>

namespace {

// Both kinds of matrices and of trees show the same texts.
const QString matrixText = QStringLiteral("Saccade clustering initialize matrix.");
const QString treeText = QStringLiteral("Saccade clustering create tree.");

template <class Distance>
SaccadeGroup measuredGroup(const QList<SaccadeVector> &vectors, const Distance &distance, Progress &progress)
{
    const auto size = static_cast<size_t>(vectors.size());
    SaccadeGroup group{vectors, DistanceMatrix(size)};
    for (size_t i = 0; i < size; ++i) {
        for (size_t j = i + 1; j < size; ++j)
            group.distances.at(i, j) = distance(vectors[static_cast<qsizetype>(i)], vectors[static_cast<qsizetype>(j)]);
        progress.advance();
    }
    return group;
}

int vectorCount(const SaccadeClusterList &clusters)
{
    qsizetype count = 0;
    for (const QList<SaccadeVector> &cluster : clusters)
        count += cluster.size();
    return static_cast<int>(count);
}

int joinCount(const std::vector<SaccadeGroup> &groups)
{
    qsizetype count = 0;
    for (const SaccadeGroup &group : groups)
        count += group.vectors.size() - 1;
    return static_cast<int>(count);
}

/// Whether the eye rests at the same times and places. Samples that are shared are not looked through.
bool restTheSame(const QList<Fixation> &a, const QList<Fixation> &b)
{
    return std::ranges::equal(a, b, {}, &Fixation::samples, &Fixation::samples);
}

} // namespace

bool SaccadeSource::operator==(const SaccadeSource &other) const
{
    return frame == other.frame && std::ranges::equal(scanpaths, other.scanpaths, restTheSame);
}

SaccadeSource saccadeSource(const DataModel &model)
{
    SaccadeSource source{{}, model.timeFrame()};
    for (const Examination *examination : model.checkedExaminations()) {
        const EyeData &eye = examination->stream(Eye::Dominant);
        if (!eye.scanpath.isEmpty())
            source.scanpaths << eye.scanpath;
    }
    return source;
}

bool canClusterSaccades(qsizetype vectors)
{
    if (vectors <= mostSaccadeVectors)
        return true;
    messages::warning(QStringLiteral("Too many saccades"),
                      QStringLiteral("There are %1 saccades, and at most %2 can be clustered at once. Please select "
                                     "fewer examinations or a shorter time, or raise the minimum length or the minimum "
                                     "angle difference.")
                          .arg(vectors)
                          .arg(mostSaccadeVectors));
    return false;
}

QList<SaccadeVector> preProcessedVectors(const SaccadeSource &source, const PreProcessing &parameters)
{
    QList<SaccadeVector> vectors;
    for (const QList<Fixation> &scanpath : source.scanpaths)
        vectors << joinSaccadeVectors(collectSaccadeVectors(scanpath, source.frame), parameters);
    return vectors;
}

std::vector<SaccadeGroup> angleGroups(const QList<SaccadeVector> &vectors, Direction direction)
{
    std::vector<SaccadeGroup> groups;
    if (vectors.size() < 2)
        return groups;
    Progress progress(matrixText, static_cast<int>(vectors.size()));
    groups.push_back(measuredGroup(
        vectors, [direction](const SaccadeVector &a, const SaccadeVector &b) { return angleDistance(a, b, direction); },
        progress));
    return groups;
}

std::vector<ClusterTree> clusterTrees(const std::vector<SaccadeGroup> &groups, Linkage linkage)
{
    std::vector<ClusterTree> trees;
    if (groups.empty())
        return trees;
    Progress progress(treeText, joinCount(groups));
    for (const SaccadeGroup &group : groups)
        trees.emplace_back(group.vectors, agglomerate(group.distances, linkage, progress));
    return trees;
}

SaccadeClusterList angleClusters(const std::vector<ClusterTree> &trees, int cutoff, int minimum)
{
    SaccadeClusterList clusters;
    for (const ClusterTree &tree : trees)
        clusters << cutTree(tree.root(), cutoff, minimum);
    return clusters;
}

std::vector<SaccadeGroup> distanceGroups(const SaccadeClusterList &clusters, DistanceAlgorithm algorithm)
{
    std::vector<SaccadeGroup> groups;
    if (clusters.isEmpty())
        return groups;
    Progress progress(matrixText, vectorCount(clusters));
    const auto distance = [algorithm](const SaccadeVector &a, const SaccadeVector &b) {
        return segmentDistance(a, b, algorithm);
    };
    for (const QList<SaccadeVector> &cluster : clusters)
        groups.push_back(measuredGroup(cluster, distance, progress));
    return groups;
}

SaccadeClusterList distanceClusters(const std::vector<ClusterTree> &trees, int cutoff, int minimum)
{
    if (trees.empty())
        return {};
    Progress progress(treeText, static_cast<int>(trees.size()));
    SaccadeClusterList clusters;
    for (const ClusterTree &tree : trees) {
        clusters << cutTree(tree.root(), cutoff, minimum);
        progress.advance();
    }
    return clusters;
}
