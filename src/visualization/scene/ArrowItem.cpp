// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/scene/ArrowItem.h"

#include "base/Truncation.h"
#include "visualization/scene/StrokedPath.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

/// Whole pixels on both sides of the line, at an angle of pi / 7 to it.
QPolygon arrowhead(QPoint to, double dx, double dy, double lineWidth)
{
    constexpr double halfOpening = 0.4487989505128276;
    const double length = 5 * lineWidth;
    const double back = std::atan2(dy, dx);
    const auto corner = [&](double angle) {
        return QPoint(truncated(to.x() + length * std::cos(angle)), truncated(to.y() + length * std::sin(angle)));
    };
    return {to, corner(back + halfOpening), corner(back - halfOpening), to};
}

} // namespace

ArrowItem::ArrowItem(QPoint from, QPoint to, bool showTip, QPen pen, const QBrush &brush)
    : m_pen(std::move(pen))
    , m_brush(brush)
    , m_from(from)
    , m_to(to)
{
    if (from == to)
        return;
    m_tip = arrowhead(to, double(from.x()) - to.x(), double(from.y()) - to.y(), m_pen.width());
    m_showTip = showTip;
}

QRectF ArrowItem::boundingRect() const
{
    // The corner of a square end lies farthest from the line's, where the line is aslant.
    const double outside = halfWidth(m_pen) * std::numbers::sqrt2;
    QRectF inside = QRectF(m_from, m_to).normalized();
    if (m_showTip) {
        const QRectF head = QPolygonF(m_tip).boundingRect();
        inside.setCoords(std::min(inside.left(), head.left()), std::min(inside.top(), head.top()),
                         std::max(inside.right(), head.right()), std::max(inside.bottom(), head.bottom()));
    }
    return inside.adjusted(-outside, -outside, outside, outside);
}

QPainterPath ArrowItem::shape() const
{
    QPainterPath outline(m_from);
    outline.lineTo(m_to);
    if (m_showTip)
        outline.addPolygon(m_tip);
    return strokedPath(outline, m_pen);
}

void ArrowItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setPen(m_pen);
    painter->setBrush(m_brush);
    painter->drawLine(m_from, m_to);
    if (m_showTip)
        painter->drawPolygon(m_tip, Qt::OddEvenFill);
}
