// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/SaccadeVector.h"
#include "model/ScanpathSection.h"
#include "model/TimeFrame.h"

/// The movements between the fixations of one stream, as far as their samples lie in the span. Where a fixation rests
/// is computed anew from these samples; one without any is passed over, and so is one with a negative coordinate: the
/// movement goes on from the fixation before it. No movement starts at (0,0), which stands for an unknown place.
QList<SaccadeVector> collectSaccadeVectors(const QList<Fixation> &scanpath, TimeFrame frame);

/// Which movements of a stream are clustered.
struct PreProcessing {
    int minimumLengthPx = 0;
    int minimumAngleDifference = 0; ///< degrees; consecutive movements that differ by no more are one
};

/// Joins consecutive movements of nearly the same line, forwards or backwards, to one from the start of the first to
/// the end of the last, and leaves out what is too short then. The movements are those of one stream.
QList<SaccadeVector> joinSaccadeVectors(const QList<SaccadeVector> &vectors, const PreProcessing &parameters);

/// How far apart the lines of two directions are, 0 to 90 degrees, the way back counting as the same line.
int lineDifference(int angleA, int angleB);
