// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/Drawing.h"

#include <vector>

/// One gaze point of the picture: a canvas position with 1 <= x < 2560 and 1 <= y < 1600.
struct GazePointRecord {
    int x;
    int y;
    QRgb color;

    bool operator==(const GazePointRecord &) const = default;
};

/// The gaze points of the checked examinations that are drawn: every `stepSize`-th sample (at least every one) of the
/// selected streams, if it is valid, inside the frame and on the canvas without its first row and column. Of several at
/// one position only the last stays, which covers the others. Colours are those of the record: points are pooled,
/// groups do not show.
std::vector<GazePointRecord> gazePointRecords(const DrawingContext &context);

/// Draws an outlined square, two pixels thick, around each record; a later one covers an earlier one.
///
/// The outline is written in steps of eight pixels, for j from -halfSize to halfSize - 1, and a step is left out if one
/// of its pixels lies outside the canvas as a linear index y * 2560 + x. So a square at the left or right edge goes on
/// in the neighbouring row, and one that reaches beyond the upper or lower edge mostly vanishes.
///
/// @param halfSize  pixels, at least 1.
/// @param workers  number of threads, at least 1; it does not change the picture.
/// @return 2560 x 1600, Format_ARGB32, transparent white where no square is.
QImage gazePointImage(const std::vector<GazePointRecord> &records, int halfSize, int workers = 4);

/// Mode "points": the image of all records with half size `size` (10 if that is below 1); nothing without records.
Drawing gazePointSquares(const DrawingContext &context);
