// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"
#include "model/TimeFrame.h"
#include "visualization/parameters/AoiVisualizationParameters.h"
#include "visualization/parameters/VisualizationParameters.h"

/// What a drawing is made from. The references are to objects of the caller, who keeps them alive while drawing.
struct DrawingContext {
    const VisualizationParameters &of(DataKind kind) const { return *records[kind]; }

    const DataModel &model;
    EyeMode eyeMode;
    TimeFrame frame;
    DrawingRecords records;
    const AoiVisualizationParameters &areas;
};
