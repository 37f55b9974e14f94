// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/PolygonEditor.h"

#include <algorithm>
#include <cmath>

namespace {

/// Between two positions, in pixels. In double, since the squares of far positions do not fit into whole numbers.
double distance(QPoint a, QPoint b)
{
    return std::hypot(double(a.x()) - b.x(), double(a.y()) - b.y());
}

} // namespace

std::optional<QPoint> PolygonEditor::marked() const
{
    return m_now.insertIndex > 0 ? std::optional(m_now.polygon[m_now.insertIndex - 1]) : std::nullopt;
}

void PolygonEditor::insert(QPoint vertex)
{
    keepStep();
    m_now.polygon.insert(m_now.insertIndex++, vertex);
}

std::optional<qsizetype> PolygonEditor::nearest(QPoint position) const
{
    const QPolygon &vertices = m_now.polygon;
    const auto found = std::min_element(vertices.cbegin(), vertices.cend(), [&](QPoint a, QPoint b) {
        return distance(a, position) < distance(b, position);
    });
    return found == vertices.cend() ? std::nullopt : std::optional(found - vertices.cbegin());
}

void PolygonEditor::markNearest(QPoint position)
{
    if (const std::optional<qsizetype> vertex = nearest(position))
        m_now.insertIndex = *vertex + 1;
}

void PolygonEditor::removeMarked()
{
    if (m_now.insertIndex < 1)
        return;
    keepStep();
    m_now.polygon.removeAt(--m_now.insertIndex);
    if (m_now.insertIndex < 1)
        m_now.insertIndex = m_now.polygon.size();
}

void PolygonEditor::moveMarked(QPoint to)
{
    if (m_now.insertIndex < 1)
        return;
    keepStep();
    m_now.polygon[m_now.insertIndex - 1] = to;
}

bool PolygonEditor::grab(QPoint position, double distancePx)
{
    const std::optional<qsizetype> vertex = nearest(position);
    if (!vertex || distance(m_now.polygon[*vertex], position) > distancePx)
        return false;
    m_now.insertIndex = *vertex + 1;
    m_dragBegins = true;
    return true;
}

void PolygonEditor::drag(QPoint to)
{
    if (std::exchange(m_dragBegins, false))
        keepStep();
    m_now.polygon[m_now.insertIndex - 1] = to;
}

void PolygonEditor::dragShape(const QPolygon &polygon)
{
    if (std::exchange(m_dragBegins, false))
        keepStep();
    m_now = {polygon, polygon.size()};
}

bool PolygonEditor::undo()
{
    if (m_done.isEmpty())
        return false;
    m_undone << std::exchange(m_now, m_done.takeLast());
    return true;
}

bool PolygonEditor::redo()
{
    if (m_undone.isEmpty())
        return false;
    m_done << std::exchange(m_now, m_undone.takeLast());
    return true;
}

void PolygonEditor::keepStep()
{
    m_done << m_now;
    m_undone.clear();
}
