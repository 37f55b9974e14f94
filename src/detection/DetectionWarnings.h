// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/FixationCalculationParameters.h"

#include <QStringList>

/// What makes the result of a detection doubtful before it has begun, a sentence each for the log. Nothing is changed:
/// parameters that do not suit a recording are the user's, and so are the results.
///
/// - A minimum duration shorter than one sampling interval, which is the median time from sample to sample.
/// - A radius below the noise of the recording; standard detector.
/// - A percentile of fewer than 100 speeds, which finds nothing whatever the percentage; velocity detector.
/// - Valid samples at the time of the sample before them, as in recordings faster than their clock: each ends a
///   fixation of the velocity detector, and durations of the standard detector are coarse.
///
/// @param samples  of one eye in file order; an eye without a valid sample was not recorded and gives no warning.
QStringList detectionWarnings(const QList<GazePoint> &samples, const FixationCalculationParameters &parameters);

/// What is doubtful whatever the recording is: a velocity threshold below 1, of which no whole part is left; a distance
/// or an image size of 0, where speeds are in degrees.
QStringList parameterWarnings(const FixationCalculationParameters &parameters);

/// Whether there is a valid sample at all.
bool wasRecorded(const QList<GazePoint> &samples);

/// The precision of a recording in px: the root mean square of the distances from sample to sample, over stretches of
/// 100 ms of valid samples; the median of all stretches, since the eye moves in some of them. 0 where there is no such
/// stretch.
/// Source: the measure RMS-S2S in Holmqvist, Nyström & Mulvey (2012), Eye tracker data quality: what it is and how to
/// measure it, ETRA.
double noisePx(const QList<GazePoint> &samples);
