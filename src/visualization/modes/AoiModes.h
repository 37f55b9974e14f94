// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/Drawing.h"

#include <QFlags>
#include <QLatin1StringView>

#include <span>

/// What the panel shows for a mode.
enum class AoiModeOption : unsigned {
    Names = 1,
    Opacity = 2,
    Border = 4,
    Color = 8,
    TransitionType = 16,
    Transitions = 32, ///< looks and threshold of ribbons and lines
    TimeWindow = 64,
    Outlines = 128,
    LinesOnly = 256, ///< the same control under another name
    MixedColors = 512,
};
Q_DECLARE_FLAGS(AoiModeOptions, AoiModeOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(AoiModeOptions)

/// One way of drawing the areas of interest. The place in the table is the stored number of the mode.
struct AoiMode {
    QLatin1StringView name;                             ///< as the panel's combo box shows it
    Drawing (*build)(const DrawingContext &) = nullptr; ///< null where nothing is drawn
    AoiModeOptions options = {};
    QLatin1StringView report{}; ///< its name in the calculation report, where it has another one there
};

std::span<const AoiMode> aoiModes();

/// The row of a stored mode; null for one that the table does not have.
const AoiMode *aoiMode(int number);

/// The areas in the mode of their record.
Drawing aoiDrawing(const DrawingContext &context);
