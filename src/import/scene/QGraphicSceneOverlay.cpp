// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/scene/QGraphicSceneOverlay.h"

#include <QGraphicsSceneMouseEvent>
#include <QPainter>

#include <utility>

void QGraphicSceneOverlay::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (event->button() == Qt::RightButton) {
        m_drawing = true;
        m_stroke.clear();
    }
    QGraphicsScene::mousePressEvent(event);
    if (event->button() == Qt::RightButton)
        event->accept(); // the release comes here, too
}

void QGraphicSceneOverlay::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (m_drawing) {
        m_stroke.push_back(event->scenePos());
        update();
    }
    QGraphicsScene::mouseMoveEvent(event);
}

/// Told at the very end: whoever hears it may clear the scene.
void QGraphicSceneOverlay::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    const bool isEnd = m_drawing && event->button() == Qt::RightButton;
    std::optional<RotatedEllipse> fit;
    if (isEnd) {
        fit = fitStroke(std::exchange(m_stroke, {}));
        m_drawing = false;
        update();
    }
    QGraphicsScene::mouseReleaseEvent(event);
    if (!fit)
        return;
    m_lastFit = *fit;
    Q_EMIT sigEllipsesdone();
}

void QGraphicSceneOverlay::drawForeground(QPainter *painter, const QRectF &rect)
{
    QGraphicsScene::drawForeground(painter, rect);
    if (m_stroke.size() < 2)
        return;
    QPen pen(Qt::red, 2);
    pen.setCosmetic(true); // as thick at each zoom
    painter->setPen(pen);
    painter->drawPolyline(m_stroke.data(), static_cast<int>(m_stroke.size()));
}
