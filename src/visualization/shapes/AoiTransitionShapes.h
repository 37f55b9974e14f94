// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/shapes/Drawing.h"

struct AoiVisualizationParameters;
struct AreaOfInterest;
struct DrawingContext;
class AoiTransitions;

/// How the gaze went between areas.
///
/// Of each area one ribbon leads to each other one that the gaze went to: it takes a part of the outline, as large as
/// its share of all transitions out of the area, and narrows down to the nearest point of the other. Instead, lines of
/// a width by the count may lead from centre to centre. Unless everything is shown, ribbons stay hidden until the mouse
/// enters their area.
///
/// @param transitions   between these areas, in this order.
/// @param examinations  by which the rates are divided.
Drawing aoiTransitionShapes(const QList<AreaOfInterest> &areas, const AoiTransitions &transitions,
                            qsizetype examinations, const AoiVisualizationParameters &parameters);

/// Between the enabled areas, in the time frame, over the checked examinations. What is not enabled does not count as a
/// place either: the gaze passes it over.
Drawing aoiTransitionDrawing(const DrawingContext &context);
