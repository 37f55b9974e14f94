// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBrush>
#include <QList>
#include <QRectF>
#include <QSet>

class QGraphicsItem;
class QGraphicsScene;

/// What is added to a scene while it lives is for one export: in the end the scene has the items and the ground that it
/// had before.
class TemporaryItems {
public:
    explicit TemporaryItems(QGraphicsScene &scene);
    ~TemporaryItems();
    TemporaryItems(const TemporaryItems &) = delete;
    TemporaryItems &operator=(const TemporaryItems &) = delete;

    /// Where the items lie that were added so far; null without any.
    QRectF bounds() const;

private:
    QList<QGraphicsItem *> added() const;

    QGraphicsScene &m_scene;
    const QSet<QGraphicsItem *> m_before; ///< not owned
    const QBrush m_ground;
};
