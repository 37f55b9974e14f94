// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/scene/interactiv_eli.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGraphicsSceneMouseEvent>

interactiv_eli::interactiv_eli(const RotatedEllipse &ellipse, const QPen &pen, Moved moved)
    : QGraphicsEllipseItem(-ellipse.width / 2, -ellipse.height / 2, ellipse.width, ellipse.height)
    , m_moved(std::move(moved))
    , m_pen(pen)
{
    setPos(ellipse.centerX, ellipse.centerY);
    setRotation(ellipse.rotation);
    setPen(pen);
    setAcceptHoverEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton); // the right one draws
    setCursor(Qt::SizeAllCursor);
    setToolTip(QStringLiteral("Move this ellipse to where its points belong"));
}

void interactiv_eli::hoverEnterEvent(QGraphicsSceneHoverEvent *)
{
    QPen thick = m_pen;
    thick.setWidthF(m_pen.widthF() * 2);
    setPen(thick);
}

void interactiv_eli::hoverLeaveEvent(QGraphicsSceneHoverEvent *)
{
    setPen(m_pen);
}

void interactiv_eli::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    m_before = pos();
    m_grip = event->scenePos() - pos();
    event->accept();
}

void interactiv_eli::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    setPos(event->scenePos() - m_grip);
}

void interactiv_eli::mouseReleaseEvent(QGraphicsSceneMouseEvent *)
{
    if (pos() != m_before)
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [moved = m_moved, center = pos()] { moved(center); }, Qt::QueuedConnection);
}
