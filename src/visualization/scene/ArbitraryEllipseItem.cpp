// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/scene/ArbitraryEllipseItem.h"

#include "base/Truncation.h"
#include "visualization/scene/StrokedPath.h"

#include <QPainter>

#include <cmath>
#include <numbers>

ArbitraryEllipseItem::ArbitraryEllipseItem(QPoint center, QVector2D a, QVector2D b, QPen pen, const QBrush &brush)
    : m_major(a)
    , m_minor(b)
    , m_center(center)
    , m_pen(std::move(pen))
    , m_brush(brush)
{
    if (m_minor.length() > m_major.length()) {
        qWarning("WARNING: Ellipse major axis smaller than minor axis. Swapped automatically.");
        std::swap(m_major, m_minor);
    }
    const double angle = std::atan2(-double(m_major.y()), double(m_major.x()));
    // Moved and turned by the item's own transformation, so that position and rotation stay zero: the origin set here
    // serves those who rotate the item later and does not shift the ellipse from its centre.
    setTransform(QTransform::fromTranslate(center.x(), center.y()), true);
    setTransformOriginPoint(double(center.x()) + double(m_major.length()),
                            double(center.y()) + double(m_minor.length()));
    setTransform(QTransform().rotate(-(angle * 180 / std::numbers::pi)), true);
}

/// The ellipse between whole pixels.
QRectF ArbitraryEllipseItem::painted() const
{
    const double major = m_major.length();
    const double minor = m_minor.length();
    return QRect(-truncated(major), -truncated(minor), truncated(2 * major), truncated(2 * minor));
}

QRectF ArbitraryEllipseItem::boundingRect() const
{
    const double major = m_major.length();
    const double minor = m_minor.length();
    const double outside = halfWidth(m_pen);
    return (QRectF(-major, -minor, 2 * major, 2 * minor) | painted()).adjusted(-outside, -outside, outside, outside);
}

QPainterPath ArbitraryEllipseItem::shape() const
{
    QPainterPath outline;
    outline.addEllipse(painted());
    return strokedPath(outline, m_pen);
}

void ArbitraryEllipseItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setPen(m_pen);
    painter->setBrush(m_brush);
    painter->drawEllipse(painted().toRect());
}

QPolygon ArbitraryEllipseItem::polygon(int steps) const
{
    if (steps < 1)
        return {};
    constexpr double fullTurn = 2 * std::numbers::pi;
    const double major = m_major.length();
    const double minor = m_minor.length();
    const QVector2D upward = m_major.y() < 0 ? -m_major : m_major;
    double r = std::atan2(-double(upward.y()), double(upward.x()));
    if (r < 0)
        r = fullTurn - r;
    QPolygon points;
    double t = 0; // a sum of steps, whose roundings decide whether there is one more at the end
    while (t < fullTurn) {
        const double x = std::cos(t) * major * std::cos(r) - std::sin(t) * minor * std::sin(r);
        const double y = std::cos(t) * major * std::sin(r) + std::sin(t) * minor * std::cos(r);
        points << QPoint(truncated(m_center.x() + x), truncated(m_center.y() + y));
        t += fullTurn / steps;
    }
    return points;
}
