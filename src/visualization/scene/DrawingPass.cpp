#include "visualization/scene/DrawingPass.h"

#include "visualization/modes/AoiModes.h"
#include "visualization/modes/DrawingModes.h"
#include "visualization/modes/DrawnAs.h"
#include "visualization/scene/SceneItems.h"

#include <QCoreApplication>
#include <QGraphicsScene>

namespace {

using ExaminationStep = Drawing (*)(const Examination &, const DrawingContext &);
using PooledStep = Drawing (*)(const DrawingContext &);

Drawing drawGazePoints(const DrawingContext &context)
{
    const PooledBuild build = builderOf(gazePointModes, context.gazePoints.visualizationMode);
    return build ? build(context) : Drawing();
}

Drawing drawPooledFixations(const DrawingContext &context)
{
    return pooledDrawing(pooledFixationModes, context.fixations.visualizationMode, context);
}

Drawing drawPooledClusters(const DrawingContext &context)
{
    return pooledDrawing(pooledClusterModes, context.clusters.visualizationMode, context);
}

Drawing drawPooledSaccades(const DrawingContext &context)
{
    return pooledDrawing(pooledSaccadeModes, context.saccades.visualizationMode, context);
}

void collectFigures(QList<HeatmapFigures> &figures, const Drawing &drawing)
{
    for (const Shape &shape : drawing) {
        const auto *raster = std::get_if<RasterShape>(&shape);
        if (raster && raster->figures)
            figures << *raster->figures;
    }
}

// Back to front.
constexpr ExaminationStep examinationSteps[] = {drawFixations, drawClusters};
constexpr PooledStep pooledSteps[] = {drawSaccades, drawGazePoints, drawPooledFixations, drawPooledClusters,
                                      drawPooledSaccades, aoiDrawing};

/// The view paints all items, and the next redraw throws them away: a fine index of their places never pays. Long
/// arrows, which lie in most places at once, would make its time quadratic.
void keepTimeLinear(QGraphicsScene &scene)
{
    constexpr int coarsest = 1;
    scene.setBspTreeDepth(coarsest);
}

/// Has the scene do now what it left to the event loop. Until then it looks through all new items for each one that
/// goes: where one event redraws several times, that would take longer than all the drawing.
void finishNewItems(QGraphicsScene &scene)
{
    QCoreApplication::sendPostedEvents(&scene, QEvent::MetaCall);
}

} // namespace

QList<HeatmapFigures> drawScene(QGraphicsScene &scene, const DrawingContext &context)
{
    keepTimeLinear(scene);
    for (const Examination *examination : context.model.checkedExaminations()) {
        for (const ExaminationStep step : examinationSteps)
            addItems(scene, step(*examination, context));
    }
    QList<HeatmapFigures> figures;
    for (const PooledStep step : pooledSteps) {
        const Drawing drawing = step(context);
        addItems(scene, drawing);
        collectFigures(figures, drawing);
    }
    finishNewItems(scene);
    return figures;
}

QList<HeatmapFigures> runDrawingPass(QGraphicsScene &scene, DataModel &model, const DrawingContext &context)
{
    const QList<HeatmapFigures> figures = drawScene(scene, context);
    setDrawnAs(model.examinations(), context);
    return figures;
}
