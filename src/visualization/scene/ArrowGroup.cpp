// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/scene/ArrowGroup.h"

#include "visualization/scene/ArrowItem.h"
#include "visualization/scene/SceneItems.h"

#include <QGraphicsItemGroup>
#include <QGraphicsScene>

#include <memory>

namespace {

QGraphicsItem *addArrow(QGraphicsScene &scene, const ArrowShape &shape)
{
    auto item = std::make_unique<ArrowItem>(shape.from, shape.to, shape.showTip, shape.pen, shape.brush);
    item->setToolTip(shape.toolTip);
    scene.addItem(item.get());
    return item.release();
}

} // namespace

QGraphicsItemGroup *addArrowGroup(QGraphicsScene &scene, const QList<ArrowShape> &arrows)
{
    if (arrows.isEmpty())
        return nullptr;
    QList<QGraphicsItem *> items;
    for (const ArrowShape &arrow : arrows)
        items << addArrow(scene, arrow);
    QGraphicsItemGroup *group = scene.createItemGroup(items);
    finishNewItems(scene); // they may go before the event loop runs
    return group;
}

void removeGroup(QGraphicsScene &scene, QGraphicsItemGroup *group)
{
    scene.removeItem(group);
    const std::unique_ptr<QGraphicsItemGroup> owner(group);
}
