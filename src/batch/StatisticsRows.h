#pragma once

#include "batch/CalculationRows.h"
#include "batch/OptionRow.h"
#include "batch/TableRows.h"

// Options, calculations and tables of statistics.
OptionGroup statisticsOptions();
QList<CalculationRow> statisticsCalculations();
QList<TableRow> statisticsTables();
