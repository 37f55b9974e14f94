// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/CalculationRows.h"
#include "batch/TableRows.h"

// Calculations and tables of statistics.
QList<CalculationRow> statisticsCalculations();
QList<TableRow> statisticsTables();
