// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/Density.h"

#include <QString>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

/// Densities made cell by cell as they are defined, for comparisons.
namespace plain {

/// The canvas, column by column.
struct Cells {
    double &at(qint64 x, qint64 y) { return values[static_cast<std::size_t>(x * canvas::height + y)]; }
    static bool contains(qint64 x, qint64 y) { return x >= 0 && x < canvas::width && y >= 0 && y < canvas::height; }

    std::vector<double> values = std::vector<double>(canvas::pixels);
};

/// Text of the first cell that differs by more than 1e-12 of its value; empty where all agree. Below 1e-290 doubles
/// have no twelve digits.
inline QString difference(const Density &found, Cells &expected)
{
    constexpr double tolerance = 1e-12;
    constexpr double smallest = 1e-290;
    for (int x = 0; x < canvas::width; ++x) {
        for (int y = 0; y < canvas::height; ++y) {
            const double value = found.at(x, y);
            const double wanted = expected.at(x, y);
            if (!(std::abs(value - wanted) <= std::max(tolerance * std::abs(wanted), smallest)))
                return QStringLiteral("cell %1 %2: %3, expected %4")
                    .arg(x)
                    .arg(y)
                    .arg(value, 0, 'g', 17)
                    .arg(wanted, 0, 'g', 17);
        }
    }
    return {};
}

inline bool sameBits(const Density &a, const Density &b)
{
    return a.peak() == b.peak() && std::memcmp(a.column(0), b.column(0), canvas::pixels * sizeof(double)) == 0;
}

inline double sumOf(const Density &density)
{
    double sum = 0;
    for (int x = 0; x < canvas::width; ++x) {
        for (int y = 0; y < canvas::height; ++y)
            sum += density.at(x, y);
    }
    return sum;
}

} // namespace plain
