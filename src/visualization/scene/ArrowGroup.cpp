// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/scene/ArrowGroup.h"

#include "visualization/scene/ArrowItem.h"

#include <QCoreApplication>
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
    // The scene puts new items into its index in the event loop. Until then, each item that is removed is searched in
    // the list of all new ones. The index is made now, so that removing n arrows does not take n * n steps.
    QCoreApplication::sendPostedEvents(&scene, QEvent::MetaCall);
    return group;
}

void removeGroup(QGraphicsScene &scene, QGraphicsItemGroup *group)
{
    scene.removeItem(group);
    const std::unique_ptr<QGraphicsItemGroup> owner(group);
}
