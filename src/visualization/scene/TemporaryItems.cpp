// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/scene/TemporaryItems.h"

#include <QGraphicsItem>
#include <QGraphicsScene>

#include <memory>

namespace {

QSet<QGraphicsItem *> itemsOf(const QGraphicsScene &scene)
{
    const QList<QGraphicsItem *> items = scene.items();
    return {items.cbegin(), items.cend()};
}

} // namespace

TemporaryItems::TemporaryItems(QGraphicsScene &scene)
    : m_scene(scene)
    , m_before(itemsOf(scene))
    , m_ground(scene.backgroundBrush())
{
}

TemporaryItems::~TemporaryItems()
{
    for (QGraphicsItem *item : added()) {
        m_scene.removeItem(item);
        const std::unique_ptr<QGraphicsItem> gone(item);
    }
    m_scene.setBackgroundBrush(m_ground);
}

QRectF TemporaryItems::bounds() const
{
    QRectF bounds;
    for (const QGraphicsItem *item : added())
        bounds |= item->sceneBoundingRect();
    return bounds;
}

QList<QGraphicsItem *> TemporaryItems::added() const
{
    QList<QGraphicsItem *> items = m_scene.items();
    items.removeIf([this](QGraphicsItem *item) { return m_before.contains(item); });
    return items;
}
