// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/AoiEntropy.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

namespace {

using Distribution = std::vector<double>;

double entropyBits(const Distribution &shares)
{
    double bits = 0;
    for (const double share : shares) {
        if (share > 0)
            bits -= share * std::log2(share);
    }
    return bits;
}

/// The sequence with its areas numbered from 0 without gaps.
std::vector<size_t> renumbered(const QList<int> &sequence)
{
    const std::set<int> seen(sequence.cbegin(), sequence.cend());
    std::vector<size_t> numbers;
    for (const int area : sequence)
        numbers.push_back(static_cast<size_t>(std::distance(seen.begin(), seen.find(area))));
    return numbers;
}

Distribution sharesOf(const std::vector<size_t> &areas, size_t count)
{
    Distribution shares(count);
    for (const size_t area : areas)
        shares[area] += 1.0 / static_cast<double>(areas.size());
    return shares;
}

/// Row by row the shares of the transitions out of an area.
std::vector<Distribution> chainOf(const std::vector<size_t> &areas, size_t count)
{
    std::vector<Distribution> rows(count, Distribution(count));
    for (size_t i = 1; i < areas.size(); ++i)
        rows[areas[i - 1]][areas[i]] += 1;
    for (Distribution &row : rows) {
        double sum = 0;
        for (const double transitions : row)
            sum += transitions;
        for (double &transitions : row)
            transitions = sum > 0 ? transitions / sum : 1.0 / static_cast<double>(count);
    }
    return rows;
}

/// Half of each step stays where it is, so that a chain that goes round and round settles, too; where it settles is the
/// same.
Distribution settled(Distribution shares, const std::vector<Distribution> &chain)
{
    constexpr int mostSteps = 100000;
    constexpr double settledBelow = 1e-14;
    for (int step = 0; step < mostSteps; ++step) {
        Distribution next(shares.size());
        for (size_t from = 0; from < shares.size(); ++from) {
            for (size_t to = 0; to < shares.size(); ++to)
                next[to] += 0.5 * shares[from] * (chain[from][to] + (from == to ? 1.0 : 0.0));
        }
        double change = 0;
        for (size_t i = 0; i < shares.size(); ++i)
            change = std::max(change, std::abs(next[i] - shares[i]));
        shares = std::move(next);
        if (change < settledBelow)
            break;
    }
    return shares;
}

} // namespace

AoiEntropy aoiEntropy(const QList<int> &sequence)
{
    if (sequence.isEmpty())
        return {};
    const std::vector<size_t> areas = renumbered(sequence);
    const size_t count = *std::max_element(areas.begin(), areas.end()) + 1;
    const Distribution seen = sharesOf(areas, count);
    AoiEntropy entropy;
    entropy.gaze = entropyBits(seen);
    if (areas.size() < 2)
        return entropy;
    const std::vector<Distribution> chain = chainOf(areas, count);
    const Distribution stationary = settled(seen, chain);
    entropy.stationary = entropyBits(stationary);
    entropy.transition = 0;
    for (size_t from = 0; from < count; ++from)
        *entropy.transition += stationary[from] * entropyBits(chain[from]);
    return entropy;
}
