// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/scene/DrawingPass.h"

#include "clustering/ClusterOrder.h"
#include "visualization/heatmap/Heatmap.h"
#include "visualization/modes/DrawnAs.h"
#include "visualization/modes/Picture.h"
#include "visualization/scene/ArrowGroup.h"
#include "visualization/scene/Background.h"
#include "visualization/scene/SceneItems.h"

#include <QGraphicsScene>

namespace {

/// The view paints all items, and the next redraw throws them away: a fine index of their places never pays. Long
/// arrows, which lie in most places at once, would make its time quadratic.
void keepTimeLinear(QGraphicsScene &scene)
{
    constexpr int coarsest = 1;
    scene.setBspTreeDepth(coarsest);
}

} // namespace

QList<HeatmapFigures> drawScene(QGraphicsScene &scene, const DrawingContext &context)
{
    keepTimeLinear(scene);
    const Picture picture = pictureOf(context);
    addItems(scene, picture.drawing);
    finishNewItems(scene); // one event may redraw several times
    return picture.figures;
}

DrawnScene runDrawingPass(QGraphicsScene &scene, DataModel &model, const DrawingContext &context,
                          const SceneLayers &layers)
{
    orderClusters(model, context.frame);
    scene.clear();
    QGraphicsPixmapItem *background = addBackground(scene, layers.background);
    if (!layers.overlay.isNull())
        addItems(scene, {RasterShape{layers.overlay}});
    const QList<HeatmapFigures> figures = drawScene(scene, context);
    if (layers.addOverData)
        layers.addOverData(scene);
    QGraphicsItemGroup *saccadeClusters = addArrowGroup(scene, layers.saccadeClusters);
    setDrawnAs(model.examinations(), context);
    return {background, saccadeClusters, figures};
}

void drawHeatmapOnTop(QGraphicsScene &scene, DataKind kind, const DrawingContext &context)
{
    removeHeatmaps(scene, kind);
    const Heatmap heatmap = heatmapOf(kind, context, HeatmapLook::RelativeScale);
    if (!heatmap.image.isNull())
        addItems(scene, {RasterShape{heatmap.image, kind}});
}
