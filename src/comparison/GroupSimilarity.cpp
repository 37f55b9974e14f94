// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/GroupSimilarity.h"

#include <QMap>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>

namespace {

constexpr int rounds = 10'000;
constexpr std::mt19937_64::result_type seed = 20140301; // any number, always the same

/// A subject in a group, in the order of groups and names.
using Member = std::pair<QString, QString>; // group, subject

struct Mean {
    void add(double value)
    {
        sum += value;
        ++count;
    }
    double value() const { return count == 0 ? undefined : sum / count; }

    double sum = 0;
    int count = 0;
};

/// Members and the mean measure of each two of them; undefined for pairs without one.
struct MemberMatrix {
    double at(std::size_t i, std::size_t j) const { return values[i * members.size() + j]; }

    std::vector<Member> members;
    std::vector<double> values;
};

MemberMatrix memberMatrix(const SimilaritySet &set, std::size_t measure)
{
    std::map<Member, std::size_t> places;
    for (const ComparedRecording &each : set.recordings) {
        if (!each.group.isEmpty())
            places[{each.group, each.subject}] = 0;
    }
    MemberMatrix matrix;
    for (auto &[member, place] : places) {
        place = matrix.members.size();
        matrix.members.push_back(member);
    }
    std::vector<Mean> means(matrix.members.size() * matrix.members.size());
    for (const ScanpathPair &pair : set.pairs) {
        const ComparedRecording &first = set.recordings[pair.first];
        const ComparedRecording &second = set.recordings[pair.second];
        const double value = pair.values[measure];
        if (first.group.isEmpty() || second.group.isEmpty() || first.subject == second.subject || std::isnan(value))
            continue;
        const std::size_t i = places[{first.group, first.subject}];
        const std::size_t j = places[{second.group, second.subject}];
        means[i * matrix.members.size() + j].add(value);
        means[j * matrix.members.size() + i].add(value);
    }
    for (const Mean &mean : means)
        matrix.values.push_back(mean.value());
    return matrix;
}

struct Means {
    double difference() const { return within.value() - between.value(); }

    Mean within;
    Mean between;
};

Means meansOf(const MemberMatrix &matrix, const std::vector<int> &groups)
{
    Means means;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        for (std::size_t j = i + 1; j < groups.size(); ++j) {
            const double value = matrix.at(i, j);
            if (!std::isnan(value))
                (groups[i] == groups[j] ? means.within : means.between).add(value);
        }
    }
    return means;
}

/// Groups as numbers, ascending.
std::vector<int> groupNumbers(const MemberMatrix &matrix)
{
    std::vector<int> numbers;
    for (std::size_t i = 0; i < matrix.members.size(); ++i)
        numbers.push_back(i == 0 ? 0 : numbers.back() + (matrix.members[i].first != matrix.members[i - 1].first));
    return numbers;
}

/// Number of different orders of the groups; more than `rounds` stays at one more.
int orders(const std::vector<int> &groups)
{
    double ways = 1;
    std::map<int, int> counts;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        ways = ways * static_cast<double>(i + 1) / ++counts[groups[i]];
        if (ways > rounds * 1e6)
            return rounds + 1;
    }
    return ways > rounds ? rounds + 1 : static_cast<int>(std::lround(ways));
}

double labelPermutationP(const MemberMatrix &matrix, std::vector<int> groups)
{
    constexpr double rounding = 1e-12; // sums of the same numbers in another order
    const double observed = std::abs(meansOf(matrix, groups).difference());
    if (std::isnan(observed))
        return undefined;
    const auto isExtreme = [&] {
        const double difference = std::abs(meansOf(matrix, groups).difference());
        return !(difference < observed - rounding * (observed + 1));
    };
    int extreme = 0;
    if (orders(groups) <= rounds) {
        int ways = 0;
        do {
            extreme += isExtreme() ? 1 : 0;
            ++ways;
        } while (std::next_permutation(groups.begin(), groups.end()));
        return static_cast<double>(extreme) / ways;
    }
    std::mt19937_64 random(seed);
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = groups.size() - 1; i > 0; --i)
            std::swap(groups[i], groups[random() % (i + 1)]);
        extreme += isExtreme() ? 1 : 0;
    }
    return static_cast<double>(extreme + 1) / (rounds + 1);
}

bool isInSeveralGroups(const std::vector<Member> &members)
{
    QSet<QString> subjects;
    for (const auto &[group, subject] : members)
        subjects << subject;
    return subjects.size() < static_cast<qsizetype>(members.size());
}

} // namespace

GroupSimilarity compareGroups(const SimilaritySet &set, std::size_t measure)
{
    const MemberMatrix matrix = memberMatrix(set, measure);
    std::map<std::pair<QString, QString>, Mean> pairs;
    for (std::size_t i = 0; i < matrix.members.size(); ++i) {
        for (std::size_t j = i + 1; j < matrix.members.size(); ++j) {
            if (!std::isnan(matrix.at(i, j)))
                pairs[{matrix.members[i].first, matrix.members[j].first}].add(matrix.at(i, j));
        }
    }
    const std::vector<int> groups = groupNumbers(matrix);
    const Means means = meansOf(matrix, groups);
    GroupSimilarity found{.pairs = {},
                          .withinPairs = means.within.count,
                          .betweenPairs = means.between.count,
                          .within = means.within.value(),
                          .between = means.between.value()};
    for (const auto &[names, mean] : pairs)
        found.pairs << GroupPair{names.first, names.second, mean.count, mean.value()};
    if (!isInSeveralGroups(matrix.members))
        found.p = labelPermutationP(matrix, groups);
    return found;
}
