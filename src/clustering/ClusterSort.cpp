// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/ClusterSort.h"

#include "base/Progress.h"

#include <algorithm>

void sortBySize(QList<FixationCluster> &clusters)
{
    Progress progress(QStringLiteral("Sort clusters, please wait."), static_cast<int>(clusters.size()));
    // The same as taking out the largest one, the first among equals, until none is left.
    std::stable_sort(clusters.begin(), clusters.end(), [](const FixationCluster &a, const FixationCluster &b) {
        return a.fixations.size() > b.fixations.size();
    });
}
