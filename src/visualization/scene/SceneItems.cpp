// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/scene/SceneItems.h"

#include "visualization/scene/ArbitraryEllipseItem.h"
#include "visualization/scene/ArrowItem.h"
#include "visualization/scene/interactive_polygon.h"

#include <QCoreApplication>
#include <QGraphicsEllipseItem>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QGraphicsTextItem>

#include <memory>

namespace {

constexpr int heatmapKey = 0; ///< of the kind that a heatmap shows, in the data of its item

void addItem(QGraphicsScene &scene, const EllipseShape &shape)
{
    auto item = std::make_unique<ArbitraryEllipseItem>(shape.center, shape.major, shape.minor, shape.pen, shape.brush);
    item->setToolTip(shape.toolTip);
    scene.addItem(item.release());
}

void addItem(QGraphicsScene &scene, const OvalShape &shape)
{
    scene.addEllipse(shape.rect, shape.pen, shape.brush)->setToolTip(shape.toolTip);
}

void addItem(QGraphicsScene &scene, const RasterShape &shape)
{
    QGraphicsPixmapItem *item = scene.addPixmap(QPixmap::fromImage(shape.image));
    item->setPos(shape.top);
    if (shape.heatmapOf)
        item->setData(heatmapKey, static_cast<int>(*shape.heatmapOf));
}

void addItem(QGraphicsScene &scene, const ArrowShape &shape)
{
    auto item = std::make_unique<ArrowItem>(shape.from, shape.to, shape.showTip, shape.pen, shape.brush);
    item->setToolTip(shape.toolTip);
    scene.addItem(item.release());
}

void addItem(QGraphicsScene &scene, const LineShape &shape)
{
    scene.addLine(shape.line, shape.pen)->setToolTip(shape.toolTip);
}

void addItem(QGraphicsScene &scene, const TextShape &shape)
{
    QGraphicsTextItem *item = scene.addText(shape.text, shape.font);
    item->setDefaultTextColor(shape.color);
    item->setAcceptHoverEvents(false); // the mouse on a name is on its area
    const QSizeF size = item->boundingRect().size();
    const bool isCentered = shape.anchor == TextAnchor::Middle || shape.anchor == TextAnchor::Center;
    const bool isBeside = shape.anchor == TextAnchor::Beside || shape.anchor == TextAnchor::Center;
    const double left = isCentered ? size.width() * 0.5 : 0;
    const double above = isBeside ? size.height() * 0.5 : 0;
    item->setPos(shape.top - QPointF(left, above));
}

/// Keeps a ribbon that is shown by its area, which may come before it or after it.
void addItem(QGraphicsScene &scene, const PolygonShape &shape, RibbonLists &ribbons)
{
    QGraphicsItem *item = scene.addPolygon(shape.polygon, shape.pen, shape.brush);
    item->setToolTip(shape.toolTip);
    if (!shape.shownOnArea)
        return;
    item->setVisible(false);
    ribbons[*shape.shownOnArea] << item;
}

void addItem(QGraphicsScene &scene, const AreaShape &shape, const std::shared_ptr<const RibbonLists> &ribbons)
{
    auto item = std::make_unique<interactive_polygon>(shape.polygon, shape.index, ribbons);
    item->setPen(shape.pen);
    item->setBrush(shape.brush);
    item->setToolTip(shape.toolTip);
    scene.addItem(item.release());
}

} // namespace

void addItems(QGraphicsScene &scene, const Drawing &drawing)
{
    const auto ribbons = std::make_shared<RibbonLists>();
    for (const Shape &shape : drawing) {
        std::visit(
            [&](const auto &kind) {
                if constexpr (requires { addItem(scene, kind, *ribbons); })
                    addItem(scene, kind, *ribbons);
                else if constexpr (requires { addItem(scene, kind, ribbons); })
                    addItem(scene, kind, ribbons);
                else
                    addItem(scene, kind);
            },
            shape);
    }
}

void finishNewItems(QGraphicsScene &scene)
{
    QCoreApplication::sendPostedEvents(&scene, QEvent::MetaCall);
}

void removeHeatmaps(QGraphicsScene &scene, DataKind kind)
{
    for (QGraphicsItem *item : scene.items()) {
        if (item->data(heatmapKey) != QVariant(static_cast<int>(kind)))
            continue;
        scene.removeItem(item);
        const std::unique_ptr<QGraphicsItem> gone(item);
    }
}
