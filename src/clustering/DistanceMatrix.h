// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

/// The distances of n things from each other, as a triangle: row i has those to all j > i.
class DistanceMatrix {
public:
    explicit DistanceMatrix(size_t size) : m_size(size), m_distances(size < 2 ? 0 : size * (size - 1) / 2) {}

    size_t size() const { return m_size; }

    /// i and j differ; their order does not matter.
    int &at(size_t i, size_t j) { return m_distances[place(i, j)]; }
    int at(size_t i, size_t j) const { return m_distances[place(i, j)]; }

    bool operator==(const DistanceMatrix &) const = default;

private:
    size_t place(size_t i, size_t j) const
    {
        if (i > j)
            std::swap(i, j);
        return i * (2 * m_size - i - 1) / 2 + (j - i - 1);
    }

    size_t m_size;
    std::vector<int> m_distances;
};
