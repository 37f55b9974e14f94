#pragma once

#include "model/DataModel.h"
#include "visualization/TimeFrame.h"
#include "visualization/VisualizationParameters.h"

#include <QPolygon>

/// What a drawing is made from. The references are to objects of the caller, who keeps them alive while drawing.
struct DrawingContext {
    const DataModel &model;
    EyeMode eyeMode;
    TimeFrame frame;
    const VisualizationParameters &gazePoints;
    const VisualizationParameters &fixations;
    const VisualizationParameters &clusters;
    const VisualizationParameters &saccades;
    QList<QPolygon> enabledAreas = {}; ///< outlines of the areas of interest that are switched on; empty: there is none
};
