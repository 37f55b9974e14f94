// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/ExportResult.h"
#include "export/ExportTarget.h"
#include "export/StatisticsTables.h"

/// Writes the general statistics of the checked examinations as they were measured last, a file for each eye of the
/// target, and tells the user where. What was not measured has no row.
ExportResult exportGeneralStatistics(const DataModel &model, const ExportTarget &target,
                                     const StatisticsColumns &columns);

/// Writes the statistics of the areas of interest likewise, and a file with the sizes of the areas, which is empty if
/// there are none.
ExportResult exportAoiStatistics(const DataModel &model, const ExportTarget &target, const StatisticsColumns &columns);
