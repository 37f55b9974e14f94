// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsPolygonItem>
#include <QHash>
#include <QList>

#include <memory>

/// The items that belong to the areas of one drawing, by the area's place. The scene owns the items.
using RibbonLists = QHash<qsizetype, QList<QGraphicsItem *>>;

/// An area of interest whose ribbons show when the mouse enters it, and stay until it enters another one.
class interactive_polygon : public QGraphicsPolygonItem {
public:
    /// @param index    place of the area in its drawing.
    /// @param ribbons  those of all areas, shared by them.
    interactive_polygon(const QPolygonF &polygon, qsizetype index, std::shared_ptr<const RibbonLists> ribbons);

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;

private:
    const qsizetype m_index;
    const std::shared_ptr<const RibbonLists> m_ribbons; ///< ends with the last area that has it
};
