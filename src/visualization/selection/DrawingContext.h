#pragma once

#include "model/DataModel.h"
#include "model/TimeFrame.h"
#include "visualization/parameters/AoiVisualizationParameters.h"
#include "visualization/parameters/VisualizationParameters.h"

/// What a drawing is made from. The references are to objects of the caller, who keeps them alive while drawing.
struct DrawingContext {
    const DataModel &model;
    EyeMode eyeMode;
    TimeFrame frame;
    const VisualizationParameters &gazePoints;
    const VisualizationParameters &fixations;
    const VisualizationParameters &clusters;
    const VisualizationParameters &saccades;
    const AoiVisualizationParameters &areas;
};
