// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterTree.h"

#include <random>

/// Joining in its plain form, as a second opinion: the whole matrix is looked through and built anew at each join. It
/// shares the records with the real one only.
namespace plain {

using Rows = std::vector<std::vector<int>>; ///< row i holds the distances to i + 1, i + 2, ...

inline Rows rowsOf(const DistanceMatrix &distances)
{
    Rows rows(distances.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        for (size_t j = i + 1; j < rows.size(); ++j)
            rows[i].push_back(distances.at(i, j));
    }
    return rows;
}

inline int distanceOf(const Rows &rows, size_t i, size_t j)
{
    return i < j ? rows[i][j - i - 1] : rows[j][i - j - 1];
}

inline std::vector<Merge> agglomerate(const DistanceMatrix &distances, Linkage linkage)
{
    Rows rows = rowsOf(distances);
    std::vector<size_t> numbers;
    for (size_t i = 0; i < rows.size(); ++i)
        numbers.push_back(i);
    std::vector<Merge> merges;
    while (numbers.size() > 1) {
        size_t a = 0;
        size_t b = 1;
        for (size_t i = 0; i < numbers.size(); ++i) {
            for (size_t j = i + 1; j < numbers.size(); ++j) {
                if (rows[i][j - i - 1] < rows[a][b - a - 1]) {
                    a = i;
                    b = j;
                }
            }
        }
        merges.push_back({numbers[a], numbers[b], rows[a][b - a - 1]});
        Rows next;
        std::vector<size_t> rest;
        for (size_t i = 0; i < numbers.size(); ++i) {
            if (i == a || i == b)
                continue;
            rest.push_back(numbers[i]);
            next.emplace_back();
            for (size_t j = i + 1; j < numbers.size(); ++j) {
                if (j != a && j != b)
                    next.back().push_back(rows[i][j - i - 1]);
            }
            const long long first = distanceOf(rows, i, a);
            const long long second = distanceOf(rows, i, b);
            const long long toNew = linkage == Linkage::Average   ? (first + second) / 2
                                    : linkage == Linkage::Maximum ? std::max(first, second)
                                                                  : std::min(first, second);
            next.back().push_back(static_cast<int>(toNew));
        }
        rest.push_back(distances.size() + merges.size() - 1);
        next.emplace_back();
        rows = std::move(next);
        numbers = std::move(rest);
    }
    return merges;
}

/// @param kinds  so many different distances: few give many ties.
inline DistanceMatrix randomDistances(size_t size, int kinds, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> distance(0, kinds - 1);
    DistanceMatrix made(size);
    for (size_t i = 0; i < size; ++i) {
        for (size_t j = i + 1; j < size; ++j)
            made.at(i, j) = distance(random);
    }
    return made;
}

} // namespace plain
