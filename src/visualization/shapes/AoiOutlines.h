// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/shapes/Drawing.h"

struct AoiVisualizationParameters;
struct AreaOfInterest;
struct DrawingContext;

/// The areas as filled outlines in their own colours, each with its name.
Drawing aoiOutlines(const QList<AreaOfInterest> &areas, const AoiVisualizationParameters &parameters);

/// Those of the enabled areas.
Drawing aoiOutlineDrawing(const DrawingContext &context);

/// A text on areas: its middle is there, its upper edge, too.
TextShape aoiText(const QString &text, QPointF top, const QColor &color, TextAnchor anchor = TextAnchor::Middle);
