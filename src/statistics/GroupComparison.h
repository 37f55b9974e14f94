// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

#include <optional>

/// One value of one subject under one condition.
struct SubjectValue {
    QString subject;
    QString group;
    double value = 0;
};

/// What the subjects of one group have in common.
struct GroupSummary {
    QString group;
    int subjects = 0;
    double mean = 0;
    double median = 0;
    std::optional<double> deviation{}; ///< of a sample (n - 1); needs two subjects
    std::optional<double> lower{};     ///< of the 95 % bootstrap interval of the mean; needs two subjects
    std::optional<double> upper{};
};

/// How two groups differ: first minus second in the order of their names.
struct GroupDifference {
    enum class Design {
        Independent, ///< no subject is in both groups
        Paired,      ///< each subject is in both
        Mixed,       ///< some are: no test fits
    };

    Design design = Design::Independent;
    double difference = 0;        ///< of the means
    std::optional<double> p{};    ///< two-sided, of the permutation test; nothing for `Mixed`
    std::optional<double> holm{}; ///< p corrected for the family of tests, filled by `correctByHolm`
    double cliffsDelta = 0;       ///< -1 to 1: how often a value of the first is above one of the second, less below
};

struct GroupComparison {
    QList<GroupSummary> groups;                ///< in the order of their names
    std::optional<GroupDifference> difference; ///< for two groups
};

/// Compares groups by subject: several values of a subject in a group count as their mean.
///
/// Interval: percentiles of 10,000 resamples of the subjects (Efron & Tibshirani 1993). Test: all permutations of the
/// subjects' groups, or where these are more than 10,000, as many at random, with the observed one (Phipson & Smyth
/// 2010); for paired groups the signs of the subjects' differences are permuted. Equal input gives equal numbers.
GroupComparison compareGroups(const QList<SubjectValue> &values);

/// Corrects the p values of a family of tests after Holm (1979): the smallest times the number of tests, and so on,
/// none below the one before, none above 1. Differences without p take no part.
void correctByHolm(const QList<GroupDifference *> &family);

/// 95 % interval of the mean by the same resampling, for values >= 2.
std::pair<double, double> bootstrapInterval(const QList<double> &values);

/// Two-sided p of a difference of means at least as large as that of the two lists.
double permutationP(const QList<double> &first, const QList<double> &second);

/// Two-sided p of a mean of differences at least as far from 0.
double signFlipP(const QList<double> &differences);

double cliffsDelta(const QList<double> &first, const QList<double> &second);
