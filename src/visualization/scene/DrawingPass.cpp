#include "visualization/scene/DrawingPass.h"

#include "visualization/DrawingModes.h"
#include "visualization/DrawnAs.h"
#include "visualization/scene/SceneItems.h"

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
constexpr ExaminationStep examinationSteps[] = {drawFixations};
constexpr PooledStep pooledSteps[] = {drawGazePoints, drawPooledFixations, drawPooledClusters, drawPooledSaccades};

} // namespace

QList<HeatmapFigures> drawScene(QGraphicsScene &scene, const DrawingContext &context)
{
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
    return figures;
}

QList<HeatmapFigures> runDrawingPass(QGraphicsScene &scene, DataModel &model, const DrawingContext &context)
{
    const QList<HeatmapFigures> figures = drawScene(scene, context);
    setDrawnAs(model.examinations(), context);
    return figures;
}
