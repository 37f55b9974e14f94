// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/FixationPath.h"

/// A scanpath as a word: the letters are numbers from 0.
using ScanpathWord = std::vector<int>;

/// Cells of equal size that cover a picture.
struct PictureGrid {
    int cells() const { return columns * rows; }
    /// The cell of a place, row by row from the upper left corner; what lies beside the picture belongs to the nearest.
    int cellOf(double x, double y) const;
    /// Distance of the centres of two cells, in cells.
    double distance(int first, int second) const;

    int columns = 1;
    int rows = 1;
    QSizeF sizePx;
};

/// A letter for each fixation: its cell.
ScanpathWord gridWord(const FixationPath &path, const PictureGrid &grid);

/// The letter of each fixation as often as its duration has bins, rounded to the nearest number: short fixations may
/// fall out. Bins of 0 ms mean one letter for each.
ScanpathWord timedGridWord(const FixationPath &path, const PictureGrid &grid, double binMs);
