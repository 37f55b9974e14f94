// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/StringEdit.h"

/// What the comparison of timed words rests on.
struct ScanMatchParameters {
    int columns = 12;
    int rows = 8;
    double binMs = 50;
    double threshold = 3.5; ///< distance in cells from which on a replacement counts against the similarity; above 0
    double gap = 0;         ///< at most 0
};

/// The scores of cells: threshold - distance.
LetterScores scanMatchScores(const PictureGrid &grid, double threshold);

/// The score of the best alignment, divided by that of the longer word aligned with itself: 1 for equal words, 0 for
/// nothing in common without a gap penalty. Undefined for an empty word.
/// Source: Cristino, Mathot, Theeuwes & Gilchrist (2010), Behavior Research Methods 42(3).
double scanMatch(const ScanpathWord &first, const ScanpathWord &second, const LetterScores &scores, double threshold,
                 double gap);
