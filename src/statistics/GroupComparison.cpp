// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/GroupComparison.h"

#include "base/Averages.h"

#include <QMap>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

namespace {

constexpr int rounds = 10000;
constexpr std::mt19937_64::result_type seed = 20140301; // any number, always the same

double deviationOf(const QList<double> &values)
{
    const double mean = meanOfValues(values);
    double squares = 0;
    for (const double value : values)
        squares += (value - mean) * (value - mean);
    return std::sqrt(squares / static_cast<double>(values.size() - 1));
}

/// A number below `bound`, the same on every machine. The bias of the remainder is below 2^-32.
qsizetype below(qsizetype bound, std::mt19937_64 &random)
{
    return static_cast<qsizetype>(random() % static_cast<quint64>(bound));
}

/// Sums of the same numbers in another order differ by rounding: what they differ by then counts as nothing.
double roundingOf(const QList<double> &values)
{
    constexpr double relative = 1e-12;
    return relative *
           std::accumulate(values.cbegin(), values.cend(), 0.0, [](double sum, double x) { return sum + std::abs(x); });
}

/// Number of ways to choose k of n; more than `rounds` stays at one more.
qint64 choices(qsizetype n, qsizetype k)
{
    double ways = 1;
    for (qsizetype i = 1; i <= std::min(k, n - k); ++i) {
        ways = ways * static_cast<double>(n - i + 1) / static_cast<double>(i);
        if (ways > rounds)
            return rounds + 1;
    }
    return std::llround(ways);
}

using ValuesOfSubject = QMap<QString, QList<double>>;

/// Of each group each subject's mean.
QMap<QString, QMap<QString, double>> bySubject(const QList<SubjectValue> &values)
{
    QMap<QString, ValuesOfSubject> all;
    for (const SubjectValue &each : values)
        all[each.group][each.subject] << each.value;
    QMap<QString, QMap<QString, double>> means;
    for (auto group = all.cbegin(); group != all.cend(); ++group) {
        for (auto subject = group->cbegin(); subject != group->cend(); ++subject)
            means[group.key()][subject.key()] = meanOfValues(*subject);
    }
    return means;
}

GroupSummary summaryOf(const QString &group, const QList<double> &values)
{
    QList<double> ordered = values; // resampling goes by the order that was given
    GroupSummary summary{.group = group,
                         .subjects = static_cast<int>(values.size()),
                         .mean = meanOfValues(values),
                         .median = *medianOf(ordered)};
    if (values.size() < 2)
        return summary;
    summary.deviation = deviationOf(values);
    std::tie(summary.lower, summary.upper) = bootstrapInterval(values);
    return summary;
}

GroupDifference differenceOf(const QMap<QString, double> &first, const QMap<QString, double> &second)
{
    using Design = GroupDifference::Design;
    const auto inBoth = std::count_if(first.keyBegin(), first.keyEnd(),
                                      [&](const QString &subject) { return second.contains(subject); });
    GroupDifference found{.difference = meanOfValues(first.values()) - meanOfValues(second.values()),
                          .cliffsDelta = cliffsDelta(first.values(), second.values())};
    if (inBoth == 0) {
        found.p = permutationP(first.values(), second.values());
        return found;
    }
    found.design = inBoth == first.size() && inBoth == second.size() ? Design::Paired : Design::Mixed;
    if (found.design == Design::Paired) {
        QList<double> differences;
        for (auto subject = first.cbegin(); subject != first.cend(); ++subject)
            differences << *subject - second[subject.key()];
        found.p = signFlipP(differences);
    }
    return found;
}

} // namespace

std::pair<double, double> bootstrapInterval(const QList<double> &values)
{
    std::mt19937_64 random(seed);
    std::vector<double> means(rounds);
    for (double &mean : means) {
        double sum = 0;
        for (qsizetype i = 0; i < values.size(); ++i)
            sum += values[below(values.size(), random)];
        mean = sum / static_cast<double>(values.size());
    }
    std::sort(means.begin(), means.end());
    constexpr size_t cut = rounds / 40; // 2.5 % at either end
    return {means[cut], means[rounds - 1 - cut]};
}

double permutationP(const QList<double> &first, const QList<double> &second)
{
    QList<double> pool = first + second;
    const double all = std::accumulate(pool.cbegin(), pool.cend(), 0.0);
    const auto n = static_cast<double>(first.size());
    const auto m = static_cast<double>(second.size());
    const auto extentOf = [&](double sum) { return std::abs(sum / n - (all - sum) / m); };
    const double observed = extentOf(std::accumulate(first.cbegin(), first.cend(), 0.0)) - roundingOf(pool);
    qint64 extreme = 0;
    if (choices(pool.size(), first.size()) <= rounds) {
        std::vector<char> isFirst(static_cast<size_t>(pool.size()), 0);
        std::fill(isFirst.begin(), isFirst.begin() + first.size(), 1);
        qint64 ways = 0;
        do {
            double sum = 0;
            for (qsizetype i = 0; i < pool.size(); ++i)
                sum += isFirst[static_cast<size_t>(i)] ? std::as_const(pool)[i] : 0.0;
            extreme += extentOf(sum) >= observed ? 1 : 0;
            ++ways;
        } while (std::prev_permutation(isFirst.begin(), isFirst.end()));
        return static_cast<double>(extreme) / static_cast<double>(ways);
    }
    std::mt19937_64 random(seed);
    for (int round = 0; round < rounds; ++round) {
        double sum = 0;
        for (qsizetype i = 0; i < first.size(); ++i) {
            std::swap(pool[i], pool[i + below(pool.size() - i, random)]);
            sum += pool[i];
        }
        extreme += extentOf(sum) >= observed ? 1 : 0;
    }
    return static_cast<double>(extreme + 1) / (rounds + 1);
}

double signFlipP(const QList<double> &differences)
{
    const double observed =
        std::abs(std::accumulate(differences.cbegin(), differences.cend(), 0.0)) - roundingOf(differences);
    constexpr qsizetype mostEnumerated = 13; // 2^13 is the last power of two below the number of rounds
    qint64 extreme = 0;
    const auto take = [&](const auto &isFlipped) {
        double sum = 0;
        for (qsizetype i = 0; i < differences.size(); ++i)
            sum += isFlipped(i) ? -differences[i] : differences[i];
        extreme += std::abs(sum) >= observed ? 1 : 0;
    };
    if (differences.size() <= mostEnumerated) {
        const quint32 ways = 1U << differences.size();
        for (quint32 way = 0; way < ways; ++way)
            take([way](qsizetype i) { return (way >> i & 1U) != 0; });
        return static_cast<double>(extreme) / ways;
    }
    std::mt19937_64 random(seed);
    for (int round = 0; round < rounds; ++round)
        take([&random](qsizetype) { return (random() & 1U) != 0; });
    return static_cast<double>(extreme + 1) / (rounds + 1);
}

double cliffsDelta(const QList<double> &first, const QList<double> &second)
{
    qint64 above = 0;
    for (const double a : first) {
        for (const double b : second)
            above += (a > b) - (a < b);
    }
    return static_cast<double>(above) / (static_cast<double>(first.size()) * static_cast<double>(second.size()));
}

GroupComparison compareGroups(const QList<SubjectValue> &values)
{
    const QMap<QString, QMap<QString, double>> means = bySubject(values);
    GroupComparison comparison;
    for (auto group = means.cbegin(); group != means.cend(); ++group)
        comparison.groups << summaryOf(group.key(), group->values());
    if (means.size() == 2)
        comparison.difference = differenceOf(means.first(), means.last());
    return comparison;
}

void correctByHolm(const QList<GroupDifference *> &family)
{
    QList<GroupDifference *> tested;
    std::copy_if(family.cbegin(), family.cend(), std::back_inserter(tested),
                 [](const GroupDifference *each) { return each->p.has_value(); });
    std::stable_sort(tested.begin(), tested.end(),
                     [](const GroupDifference *a, const GroupDifference *b) { return *a->p < *b->p; });
    double least = 0;
    for (qsizetype i = 0; i < tested.size(); ++i) {
        least = std::max(least, std::min(1.0, *tested[i]->p * static_cast<double>(tested.size() - i)));
        tested[i]->holm = least;
    }
}
