// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/selection/DataSelection.h"
#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/Drawing.h"
#include "visualization/shapes/ShapeStyle.h"

/// The shapes of the fixations of one stream.
using FixationPainter = Drawing (*)(const EyeData &, TimeFrame, const ShapeStyle &, const VisualizationParameters &);

/// Mode "elliptic (pca)": an ellipse along the principal axes of each fixation of the frame, twice as large as the
/// standard deviation unless `showOriginalSize`. A fixation that the frame's start cuts is fitted anew from its samples
/// inside, one that only the end cuts is not. Centre and tool tip are those of the whole fixation.
Drawing fixationEllipses(const EyeData &eye, TimeFrame frame, const ShapeStyle &style,
                         const VisualizationParameters &parameters);

/// Mode "circular": a circle around the mean of each fixation of the frame; see `circleDiameter`.
Drawing fixationCircles(const EyeData &eye, TimeFrame frame, const ShapeStyle &style,
                        const VisualizationParameters &parameters);

/// Pixels. Twice the major axis for `showOriginalSize`; else by the number of samples strictly inside the frame for
/// `durationDependent`, where the size acts twice; else by the size alone.
int circleDiameter(const Fixation &fixation, TimeFrame frame, const VisualizationParameters &parameters);

/// The fixations of a stream, in the colours of its eye and group.
Drawing paintedFixations(FixationPainter paint, const ExaminationEye &stream, const DrawingContext &context);

template <FixationPainter Paint>
Drawing fixationsOfEye(const ExaminationEye &stream, const DrawingContext &context)
{
    return paintedFixations(Paint, stream, context);
}
