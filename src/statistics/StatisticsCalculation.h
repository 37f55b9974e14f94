// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SideBySide.h"
#include "model/DataModel.h"

class Log;

/// Measures the gaze of each stream of the checked examinations in the time frame of the model; the results stand in
/// the streams. Recordings are measured side by side; the results do not depend on how many at a time.
///
/// @param log  may be null.
void calculateGeneralStatistics(DataModel &model, const Log *log, int threads = coreCount());

/// The same for all areas of interest of the model.
void calculateAoiStatistics(DataModel &model, const Log *log, int threads = coreCount());
