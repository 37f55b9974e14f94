#include "visualization/scene/SceneItems.h"

#include "visualization/scene/ArbitraryEllipseItem.h"

#include <QGraphicsEllipseItem>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>

namespace {

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
    scene.addPixmap(QPixmap::fromImage(shape.image));
}

} // namespace

void addItems(QGraphicsScene &scene, const Drawing &drawing)
{
    for (const Shape &shape : drawing)
        std::visit([&](const auto &kind) { addItem(scene, kind); }, shape);
}
