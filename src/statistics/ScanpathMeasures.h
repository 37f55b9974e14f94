// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/EyeData.h"
#include "model/TimeFrame.h"
#include "statistics/AoiIndex.h"
#include "statistics/Measure.h"

#include <span>

/// How one stream moved over the picture, as the field defines it. Only fixations that lie wholly in the frame take
/// part; a saccade leads from one of them to the next. What is not defined is empty.
struct ScanpathMeasures {
    using Value = std::optional<double>;

    int fixations = 0;
    int saccades = 0;
    Value fixationDurationMs;    ///< mean
    Value saccadeDurationMs;     ///< mean, from the last sample of one fixation to the first of the next
    Value amplitudePx;           ///< mean distance of two fixations in a row
    Value amplitudeDegrees;      ///< the same as a visual angle
    Value lengthPx;              ///< sum of the amplitudes
    Value transitionEntropyBits; ///< of the next area, given the area (Krejtz et al. 2015)
    Value stationaryEntropyBits; ///< of the area in the long run (Krejtz et al. 2015)
    Value gazeEntropyBits;       ///< of the areas of the fixations
    Value hullAreaPx2;           ///< convex hull of the fixations
    Value bceaPx2;               ///< ellipse around 68.2 % of the valid samples
    Value validShare;            ///< of the samples of the frame
};

/// @param pixelPerDistance  size of a pixel as part of the distance from eye to picture; nothing: not known.
ScanpathMeasures scanpathMeasures(const EyeData &stream, const AoiIndex &index, TimeFrame frame,
                                  std::optional<double> pixelPerDistance);

/// The columns of the table of scanpaths.
std::span<const Measure<ScanpathMeasures>> scanpathMeasureColumns();
