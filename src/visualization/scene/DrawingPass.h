// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/heatmap/HeatmapFigures.h"
#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/Drawing.h"

#include <QImage>
#include <QPixmap>

#include <functional>

class QGraphicsItemGroup;
class QGraphicsPixmapItem;
class QGraphicsScene;

/// What lies below and above the data.
struct SceneLayers {
    QPixmap background;
    QImage overlay{};                                    ///< over the background, below the data; null for none
    QList<ArrowShape> saccadeClusters{};                 ///< on top of everything
    std::function<void(QGraphicsScene &)> addOverData{}; ///< adds items above the data; empty for none
};

/// What a pass put into the scene, which owns the items.
struct DrawnScene {
    QGraphicsPixmapItem *background;     ///< never null
    QGraphicsItemGroup *saccadeClusters; ///< null where there are none
    QList<HeatmapFigures> figures;       ///< of the heatmaps, for the labels
};

/// One redraw: orders the clusters by what the frame shows of them, clears the scene, draws everything, and notes in
/// the examinations what was drawn. All items that were in the scene are gone afterwards.
///
/// @param model  that of the context.
DrawnScene runDrawingPass(QGraphicsScene &scene, DataModel &model, const DrawingContext &context,
                          const SceneLayers &layers);

/// Adds what the context shows to the scene, see `pictureOf`; returns the figures of the heatmaps.
QList<HeatmapFigures> drawScene(QGraphicsScene &scene, const DrawingContext &context);

/// Draws the heatmap of a kind over everything, on the scale of its own maximum, in place of one that the scene shows
/// of this kind. Lasts until the next pass.
void drawHeatmapOnTop(QGraphicsScene &scene, DataKind kind, const DrawingContext &context);
