// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/MeasureExport.h"

/// Writes the data quality of each checked examination and eye in the time frame, a row each, and tells the user where.
ExportResult exportQuality(const DataModel &model, const ExportTarget &target, const MeasureForm &form);
