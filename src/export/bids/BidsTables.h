// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/EyeData.h"
#include "model/TimeFrame.h"

/// A stream as BIDS has it: tables without header, tabs between the fields, "n/a" for what is missing.
struct BidsTable {
    QByteArray rows; ///< each ended by "\n"
    QStringList columns;
};

/// The samples of the frame: time in ms, place in px and pupil; those that are not valid are missing.
///
/// @param missing  what a sample that is not valid holds as a rule. Where any holds something else, columns "lost_..."
/// keep
///                 what was recorded, so that nothing is lost: some detectors look at it.
BidsTable bidsSamples(const QList<GazePoint> &samples, TimeFrame frame, double missing);

/// Fixations, the saccades between them and losses, in the order of their onset.
BidsTable bidsEvents(const EyeData &stream, TimeFrame frame);

/// Samples per second over the steps between the samples of the frame that are no gaps; 0 without any.
double measuredRateHz(const QList<GazePoint> &samples, TimeFrame frame);
