// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <utility>
#include <vector>

/// Pairs of places of two sequences, from the first of both to the last of both.
struct Alignment {
    std::vector<std::pair<std::size_t, std::size_t>> pairs;
    double cost = 0; ///< sum over the pairs but for the first, or over all; see `bestAlignment`
};

enum class FirstPair { Counts, CostsNothing };

/// The alignment of least cost in which each step goes on in one of the sequences or in both; of equal ones that which
/// goes on in both, then in the first.
///
/// @param cost  of a pair of places, at least 0; called once for each.
template <class Cost>
Alignment bestAlignment(std::size_t first, std::size_t second, const Cost &cost,
                        FirstPair firstPair = FirstPair::CostsNothing)
{
    enum class Step : unsigned char { Both, First, Second };
    std::vector<double> row(second);
    std::vector<Step> steps(first * second);
    for (std::size_t i = 0; i < first; ++i) {
        double diagonal = 0;
        for (std::size_t j = 0; j < second; ++j) {
            double least = 0;
            Step step = Step::Both;
            if (i > 0 && j > 0)
                least = diagonal;
            if (i > 0 && (j == 0 || row[j] < least)) {
                least = row[j];
                step = Step::First;
            }
            if (j > 0 && (i == 0 || row[j - 1] < least)) {
                least = row[j - 1];
                step = Step::Second;
            }
            diagonal = row[j];
            const bool isFree = i == 0 && j == 0 && firstPair == FirstPair::CostsNothing;
            row[j] = least + (isFree ? 0 : cost(i, j));
            steps[i * second + j] = step;
        }
    }
    Alignment best{{{first - 1, second - 1}}, row.back()};
    for (auto [i, j] = best.pairs.front(); i > 0 || j > 0; best.pairs.emplace_back(i, j)) {
        const Step step = steps[i * second + j];
        i -= step == Step::Second ? 0U : 1U;
        j -= step == Step::First ? 0U : 1U;
    }
    std::reverse(best.pairs.begin(), best.pairs.end());
    return best;
}
