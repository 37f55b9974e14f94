// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/ScanpathSimilarity.h"

/// How alike the scanpaths of two groups are, or those of one group among themselves.
struct GroupPair {
    QString first;
    QString second; ///< the same group: within it
    int subjectPairs = 0;
    double mean = undefined;
};

/// Whether the members of a group are more alike than members of different groups.
struct GroupSimilarity {
    QList<GroupPair> pairs; ///< in the order of the names
    int withinPairs = 0;
    int betweenPairs = 0;
    double within = undefined;  ///< mean over the pairs of subjects of one group
    double between = undefined; ///< mean over the pairs of subjects of different groups
    double p = undefined;       ///< two-sided, of within - between
};

/// The unit is the subject: of several recordings the pairs count as their mean, pairs of one subject do not count.
/// Recordings without a group take no part; a subject in several groups spoils the test alone.
///
/// Test: the subjects' groups are permuted, all permutations where there are at most 10,000 orders of the groups, else
/// as many at random, with the observed one (Phipson & Smyth 2010). Equal input gives equal numbers. Pairs whose
/// measure is not defined count nowhere; a permutation without a mean counts as extreme.
/// @param measure  place in `similarityMeasures`.
GroupSimilarity compareGroups(const SimilaritySet &set, std::size_t measure);
