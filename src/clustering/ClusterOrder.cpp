// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/ClusterOrder.h"

#include "model/DataModel.h"

#include <algorithm>

namespace {

struct Rank {
    qsizetype index = 0;
    qsizetype fixations = 0; ///< within the frame
    int creation = 0;
};

bool comesFirst(const Rank &a, const Rank &b)
{
    return a.fixations != b.fixations ? a.fixations > b.fixations : a.creation < b.creation;
}

QList<Rank> ranksOf(const QList<FixationCluster> &clusters, TimeFrame frame)
{
    QList<Rank> ranks;
    for (qsizetype i = 0; i < clusters.size(); ++i)
        ranks << Rank{i, clusters[i].fixationsWithin(frame), clusters[i].number};
    return ranks;
}

} // namespace

QList<FixationCluster> orderedByFixationsWithin(const QList<FixationCluster> &clusters, TimeFrame frame)
{
    QList<Rank> ranks = ranksOf(clusters, frame);
    if (std::is_sorted(ranks.cbegin(), ranks.cend(), comesFirst))
        return clusters; // shared, as on most moves of the timeline
    std::stable_sort(ranks.begin(), ranks.end(), comesFirst);
    QList<FixationCluster> ordered;
    ordered.reserve(clusters.size());
    for (const Rank &rank : std::as_const(ranks))
        ordered << clusters[rank.index];
    return ordered;
}

void orderClusters(DataModel &model, TimeFrame frame)
{
    for (Examination &examination : model.examinations()) {
        for (EyeData *eye : examination.streams())
            eye->fixationClusters = orderedByFixationsWithin(eye->fixationClusters, frame);
    }
}
