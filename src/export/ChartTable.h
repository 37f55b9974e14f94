// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

struct Chart;

/// The numbers behind a chart as a tidy table: a row for each bin with the time at which it begins, `bin_start_ms`, and
/// a column for each curve, named like it. The values are those of the curves before any smoothing.
QString chartTable(const Chart &chart);
