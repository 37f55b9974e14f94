// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/ReportRecords.h"
#include "visualization/selection/DrawingContext.h"

/// The part of a report that tells how the data are drawn.
QString reportConfig(const DrawingContext &context, const ReportRecords &records);
