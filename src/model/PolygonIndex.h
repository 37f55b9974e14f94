// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Canvas.h"

#include <QPoint>
#include <QPolygon>

#include <algorithm>
#include <vector>

/// Which whole pixels lie in a polygon, under one fill rule: the same answers as `QPolygon::containsPoint`, for many
/// questions about one polygon.
///
/// Each row of the canvas has a list of the columns at which inside and outside change. Along a row, an edge is crossed
/// at the first pixel that is not left of it; an edge belongs to the rows from its upper end to above its lower end.
/// So left and upper borders are inside, right and lower ones are not, and horizontal edges count for nothing.
/// Rows beyond the canvas are answered edge by edge, so that a polygon of any size needs no more memory than the canvas
/// has rows, times its edges at worst.
class PolygonIndex {
public:
    PolygonIndex(const QPolygon &polygon, Qt::FillRule rule);

    bool contains(QPoint position) const
    {
        // A distance below zero becomes a large one. One jump for both axes: most positions lie beside the polygon.
        const auto column = static_cast<quint64>(static_cast<qint64>(position.x()) - m_firstColumn);
        const auto row = static_cast<quint64>(static_cast<qint64>(position.y()) - m_firstRow);
        if (static_cast<unsigned>(column >= m_columnCount) | static_cast<unsigned>(row >= m_rowCount))
            return m_isLarger && isBeyondCanvas(position.y()) && m_polygon.containsPoint(position, m_rule);
        return isInside(m_changes.data() + m_rowBegins[row], m_changes.data() + m_rowBegins[row + 1], position.x());
    }

private:
    static bool isBeyondCanvas(int y) { return y < 0 || y >= canvas::height; }

    /// Whether an odd number of changes lies at x or left of it.
    static bool isInside(const int *begin, const int *end, int x)
    {
        constexpr qsizetype fewChanges = 16; // up to here a walk is faster than a search
        if (end - begin > fewChanges)
            return (std::upper_bound(begin, end, x) - begin) % 2 != 0;
        bool inside = false;
        for (; begin != end && *begin <= x; ++begin)
            inside = !inside;
        return inside;
    }

    QPolygon m_polygon;
    Qt::FillRule m_rule;
    qint64 m_firstRow = 0;
    quint64 m_rowCount = 0;
    qint64 m_firstColumn = 0;
    quint64 m_columnCount = 0;
    bool m_isLarger = false;              ///< has rows beyond the canvas
    std::vector<std::size_t> m_rowBegins; ///< of each row in `m_changes`, and the end; empty without rows
    std::vector<int> m_changes; ///< columns from which on it is inside, outside, inside ...; ascending in each row
};
