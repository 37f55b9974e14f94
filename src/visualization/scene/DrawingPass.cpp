#include "visualization/scene/DrawingPass.h"

#include "visualization/DrawingModes.h"
#include "visualization/DrawnAs.h"
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

// Back to front.
constexpr ExaminationStep examinationSteps[] = {drawFixations, drawClusters};
constexpr PooledStep pooledSteps[] = {drawSaccades, drawGazePoints};

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

void drawScene(QGraphicsScene &scene, const DrawingContext &context)
{
    keepTimeLinear(scene);
    for (const Examination *examination : context.model.checkedExaminations()) {
        for (const ExaminationStep step : examinationSteps)
            addItems(scene, step(*examination, context));
    }
    for (const PooledStep step : pooledSteps)
        addItems(scene, step(context));
    finishNewItems(scene);
}

void runDrawingPass(QGraphicsScene &scene, DataModel &model, const DrawingContext &context)
{
    drawScene(scene, context);
    setDrawnAs(model.examinations(), context);
}
