#pragma once

#include "visualization/DrawingContext.h"

class QGraphicsScene;

/// Adds everything that the context shows to the scene, in the order that decides what lies on top: first examination
/// by examination, then what pools them all.
void drawScene(QGraphicsScene &scene, const DrawingContext &context);

/// Draws the model and notes in its examinations what was drawn.
void runDrawingPass(QGraphicsScene &scene, DataModel &model, const DrawingContext &context);
