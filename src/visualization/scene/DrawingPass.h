#pragma once

#include "visualization/selection/DrawingContext.h"
#include "visualization/heatmap/HeatmapFigures.h"

#include <QList>

class QGraphicsScene;

/// Adds everything that the context shows to the scene, in the order that decides what lies on top: first examination
/// by examination, then what pools them all.
///
/// @return the figures of the heatmaps that were drawn, for the labels; none of shadow maps and of what had no events.
QList<HeatmapFigures> drawScene(QGraphicsScene &scene, const DrawingContext &context);

/// Draws the model and notes in its examinations what was drawn; returns the figures of the heatmaps.
QList<HeatmapFigures> runDrawingPass(QGraphicsScene &scene, DataModel &model, const DrawingContext &context);
