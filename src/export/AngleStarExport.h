// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/ExportResult.h"
#include "model/DataModel.h"

/// The bins of the anglestar as the saccade panel has them.
struct AngleStarForm {
    int bins = 1;          ///< 1 to 360; what lies beyond counts as the nearest of these
    int offsetDegrees = 0; ///< of the first bin on the picture; only named in the table
};

/// The saccades of the checked examinations by direction, for one eye: number, mean duration and mean length, a block
/// of rows for each and the mean of the rows below it. Values have a decimal comma, angles in the header a point.
QString angleStarTable(const DataModel &model, Eye eye, AngleStarForm form);

/// Writes a table for each of the four eyes, whatever is chosen elsewhere, and tells the user where.
///
/// @param stem  what the paths begin with.
ExportResult exportAngleStar(const DataModel &model, const QString &stem, AngleStarForm form);
