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

// Back to front.
constexpr ExaminationStep examinationSteps[] = {drawFixations};
constexpr PooledStep pooledSteps[] = {drawSaccades, drawGazePoints};

} // namespace

void drawScene(QGraphicsScene &scene, const DrawingContext &context)
{
    for (const Examination *examination : context.model.checkedExaminations()) {
        for (const ExaminationStep step : examinationSteps)
            addItems(scene, step(*examination, context));
    }
    for (const PooledStep step : pooledSteps)
        addItems(scene, step(context));
}

void runDrawingPass(QGraphicsScene &scene, DataModel &model, const DrawingContext &context)
{
    drawScene(scene, context);
    setDrawnAs(model.examinations(), context);
}
