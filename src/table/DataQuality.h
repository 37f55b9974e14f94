// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Examination.h"
#include "model/TimeFrame.h"
#include "statistics/Measure.h"

#include <QSizeF>

#include <optional>
#include <span>

/// How good a recording is through one eye, by what can be computed from the recording itself. What is not defined is
/// empty. `docs/measures.md` has definitions, units and sources.
struct EyeQuality {
    using Value = std::optional<double>;
    using Count = qint64;

    // Time.
    Count samples = 0; ///< of the frame
    Value durationMs;
    Value rateHz;
    Value jitterMs;
    Count repeatedTimes = 0;
    Count backwardTimes = 0;
    Count gaps = 0;
    Value gapTimeMs;
    Value gapTimeShare; ///< of the duration
    Value longestGapMs;

    // Losses: runs of samples that are not usable.
    Value validShare;
    Value dataLossShare; ///< of the samples that the measured rate lets expect
    Count losses = 0;
    Count shortLosses = 0; ///< shorter than a blink
    Count blinkLosses = 0; ///< as long as a blink
    Count longLosses = 0;  ///< longer
    Value longestLossMs;
    Value outsideShare; ///< of the usable samples

    // Precision.
    Value rmsPx;
    Value windowRmsPx;
    Count measuredFixations = 0;
    Value fixationRmsPx;
    Value fixationDeviationPx;
    Value fixationBceaPx2;

    // Both eyes.
    Value binocularShare; ///< of the samples
    Value eyeDistancePx;
    Value eyeOffsetXPx; ///< right minus left
    Value eyeOffsetYPx;

    Value pixelPerDistance; ///< of the form; angles are empty without it
};

/// What the quality depends on beside the samples.
struct QualityForm {
    TimeFrame frame;
    QSizeF screenPx;                        ///< what counts as inside; its upper left corner is (0,0)
    std::optional<double> pixelPerDistance; ///< size of a pixel as part of the distance from eye to picture
};

/// Bounds of the classes of losses in ms, by their length: blinks last from `blinkFromMs` to `blinkToMs`, both
/// included.
inline constexpr double blinkFromMs = 75;
inline constexpr double blinkToMs = 500;

/// The length of the windows, in ms, over which precision is measured without fixations.
inline constexpr qint64 precisionWindowMs = 200;

/// The quality through each of the eyes, in their order, in one pass over the samples of each.
///
/// Precision within fixations needs calculated ones; without them it is empty.
QList<EyeQuality> dataQuality(const Examination &examination, const QList<Eye> &eyes, const QualityForm &form);

/// Every measure with its name and unit, in the order of the tables.
std::span<const Measure<EyeQuality>> qualityMeasures();

/// The size of the examination's picture in px by its file; that of the canvas without one that can be read.
QSizeF screenSizeOf(const Examination &examination);
