#pragma once

#include "visualization/heatmap/HeatmapFigures.h"
#include "visualization/selection/DrawingContext.h"

#include <QList>

class QGraphicsScene;

/// Adds everything that the context shows to the scene, see `pictureOf`; returns the figures of the heatmaps that were
/// drawn, for the labels.
QList<HeatmapFigures> drawScene(QGraphicsScene &scene, const DrawingContext &context);

/// Draws the model and notes in its examinations what was drawn; returns the figures of the heatmaps.
QList<HeatmapFigures> runDrawingPass(QGraphicsScene &scene, DataModel &model, const DrawingContext &context);
