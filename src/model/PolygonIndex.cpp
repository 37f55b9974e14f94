// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PolygonIndex.h"

#include <cmath>

namespace {

/// An edge from its upper to its lower end; never horizontal.
struct Edge {
    QPoint upper;
    QPoint lower;
    int direction; ///< 1 where the polygon runs downwards, else -1

    /// The first pixel of the row that is not left of the edge. The terms stand in the order in which Qt computes them,
    /// so that both round alike.
    double firstRightOf(int row) const
    {
        const double x = upper.x();
        const double y = upper.y();
        return std::ceil(x + ((lower.x() - x) / (lower.y() - y)) * (row - y));
    }
};

/// Where a row crosses an edge.
struct Crossing {
    double x;
    int direction;
};

std::vector<Edge> edgesOf(const QPolygon &polygon)
{
    std::vector<Edge> edges;
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        const QPoint from = polygon[i];
        const QPoint to = polygon[i + 1 == polygon.size() ? 0 : i + 1];
        if (from.y() < to.y())
            edges.push_back({from, to, 1});
        else if (to.y() < from.y())
            edges.push_back({to, from, -1});
    }
    std::sort(edges.begin(), edges.end(), [](const Edge &a, const Edge &b) { return a.upper.y() < b.upper.y(); });
    return edges;
}

/// Walks down the rows and knows the edges of each.
class RowWalk {
public:
    explicit RowWalk(const std::vector<Edge> &edges) : m_next(edges.begin()), m_end(edges.end()) {}

    /// The crossings of the row from left to right. Rows come in ascending order.
    const std::vector<Crossing> &crossingsAt(int row)
    {
        for (; m_next != m_end && m_next->upper.y() <= row; ++m_next)
            m_active.push_back(*m_next);
        std::erase_if(m_active, [row](const Edge &edge) { return edge.lower.y() <= row; });
        m_crossings.clear();
        for (const Edge &edge : m_active)
            m_crossings.push_back({edge.firstRightOf(row), edge.direction});
        std::sort(m_crossings.begin(), m_crossings.end(),
                  [](const Crossing &a, const Crossing &b) { return a.x < b.x; });
        return m_crossings;
    }

private:
    std::vector<Edge>::const_iterator m_next;
    std::vector<Edge>::const_iterator m_end;
    std::vector<Edge> m_active;
    std::vector<Crossing> m_crossings;
};

bool isInside(int winding, Qt::FillRule rule)
{
    return rule == Qt::WindingFill ? winding != 0 : winding % 2 != 0;
}

void appendChanges(std::vector<int> &changes, const std::vector<Crossing> &crossings, Qt::FillRule rule)
{
    int winding = 0;
    for (std::size_t i = 0; i < crossings.size();) {
        const double x = crossings[i].x;
        const bool before = isInside(winding, rule);
        for (; i < crossings.size() && crossings[i].x == x; ++i)
            winding += crossings[i].direction;
        // Rounding may carry a crossing past the last pixel that there is.
        if (isInside(winding, rule) != before && x <= std::numeric_limits<int>::max())
            changes.push_back(static_cast<int>(x));
    }
}

} // namespace

PolygonIndex::PolygonIndex(const QPolygon &polygon, Qt::FillRule rule) : m_polygon(polygon), m_rule(rule)
{
    const std::vector<Edge> edges = edgesOf(polygon);
    if (edges.empty())
        return;
    const auto lowest = std::max_element(edges.begin(), edges.end(),
                                         [](const Edge &a, const Edge &b) { return a.lower.y() < b.lower.y(); });
    const int endRow = std::min(lowest->lower.y(), canvas::height);
    const int firstRow = std::max(edges.front().upper.y(), 0);
    m_isLarger = endRow != lowest->lower.y() || firstRow != edges.front().upper.y();
    m_firstRow = firstRow;
    const auto [left, right] =
        std::minmax_element(polygon.begin(), polygon.end(), [](QPoint a, QPoint b) { return a.x() < b.x(); });
    m_firstColumn = left->x();
    m_columnCount = static_cast<quint64>(qint64(right->x()) - left->x() + 1);
    m_rowCount = static_cast<std::size_t>(std::max(endRow - firstRow, 0));
    RowWalk walk(edges);
    for (int row = firstRow; row < endRow; ++row) {
        m_rowBegins.push_back(m_changes.size());
        appendChanges(m_changes, walk.crossingsAt(row), rule);
    }
    m_rowBegins.push_back(m_changes.size());
}
