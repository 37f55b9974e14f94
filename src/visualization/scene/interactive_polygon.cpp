// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/scene/interactive_polygon.h"

#include <QGraphicsSceneHoverEvent>
#include <QToolTip>

interactive_polygon::interactive_polygon(const QPolygonF &polygon, qsizetype index,
                                         std::shared_ptr<const RibbonLists> ribbons)
    : QGraphicsPolygonItem(polygon)
    , m_index(index)
    , m_ribbons(std::move(ribbons))
{
    setAcceptHoverEvents(true);
}

void interactive_polygon::hoverEnterEvent(QGraphicsSceneHoverEvent *event)
{
    QToolTip::showText(event->screenPos(), toolTip());
    for (auto area = m_ribbons->cbegin(); area != m_ribbons->cend(); ++area) {
        for (QGraphicsItem *ribbon : area.value())
            ribbon->setVisible(area.key() == m_index);
    }
    QGraphicsPolygonItem::hoverEnterEvent(event);
}
