// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/scene/CorrectionItems.h"

#include "base/Truncation.h"
#include "import/scene/interactiv_eli.h"
#include "import/scene/pixelitem.h"

#include <QGraphicsScene>
#include <QSet>

#include <memory>

namespace {

QPen outline(const QColor &color, bool selected)
{
    constexpr double thin = 2;
    constexpr double thick = 4;
    return {color, selected ? thick : thin};
}

template <class Item, class... Arguments>
Item &add(QGraphicsScene &scene, Arguments &&...arguments)
{
    auto item = std::make_unique<Item>(std::forward<Arguments>(arguments)...);
    Item &added = *item;
    scene.addItem(item.release()); // owned by the scene
    return added;
}

void addPoints(QGraphicsScene &scene, const QList<GazePoint> &points, const CorrectionOverlay &overlay)
{
    QSet<QPoint> marked;
    for (const GazePoint &point : points) {
        const QPoint pixel(truncated(point.x), truncated(point.y));
        if (marked.contains(pixel))
            continue;
        marked << pixel;
        add<pixelitem>(scene, pixel, overlay.pointSizePx, overlay.points);
    }
}

void addOriginal(QGraphicsScene &scene, const RotatedEllipse &ellipse, const QPen &pen)
{
    auto &item =
        add<QGraphicsEllipseItem>(scene, -ellipse.width / 2, -ellipse.height / 2, ellipse.width, ellipse.height);
    item.setPos(ellipse.centerX, ellipse.centerY);
    item.setRotation(ellipse.rotation);
    item.setPen(pen);
    item.setAcceptedMouseButtons(Qt::NoButton);
}

} // namespace

void addCorrectionItems(QGraphicsScene &scene, const CorrectionOverlay &overlay)
{
    for (qsizetype i = 0; i < overlay.rows.size(); ++i) {
        const auto &[pair, selected] = overlay.rows[i];
        if (selected) {
            addPoints(scene, pair.original.points, overlay);
            addPoints(scene, pair.corrected.points, overlay);
        }
        addOriginal(scene, pair.original, outline(overlay.original, selected));
        add<interactiv_eli>(scene, pair.corrected, outline(overlay.corrected, selected),
                            [moved = overlay.moved, i](QPointF center) { moved(i, center); });
    }
}
