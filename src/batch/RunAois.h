// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/BatchReport.h"

struct RunState;

/// Makes areas, and clusters from regions, as asked for; to be called after the calculations.
void generateAois(RunState &run);

/// Writes all areas of the model in the order of their names.
void exportAois(RunState &run);

/// Writes the saliency of the picture.
void exportSaliency(RunState &run);

/// The areas of the model in the order of their names.
QList<ReportedArea> reportedAreas(const RunState &run);
