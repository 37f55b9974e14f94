#include "visualization/scene/DrawingPass.h"

#include "visualization/modes/DrawnAs.h"
#include "visualization/modes/Picture.h"
#include "visualization/scene/SceneItems.h"

#include <QCoreApplication>
#include <QGraphicsScene>

namespace {

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
    const Picture picture = pictureOf(context);
    addItems(scene, picture.drawing);
    finishNewItems(scene);
    return picture.figures;
}

QList<HeatmapFigures> runDrawingPass(QGraphicsScene &scene, DataModel &model, const DrawingContext &context)
{
    const QList<HeatmapFigures> figures = drawScene(scene, context);
    setDrawnAs(model.examinations(), context);
    return figures;
}
