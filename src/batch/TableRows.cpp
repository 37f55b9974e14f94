// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/TableRows.h"

#include "batch/CalculationRows.h"
#include "batch/RunState.h"
#include "batch/StatisticsRows.h"

namespace {

using Text = QLatin1StringView;

template <auto Export>
ExportResult write(RunState &run, const ExportTarget &target)
{
    return Export(run.model, target);
}

} // namespace

QList<TableRow> tableRows()
{
    return QList<TableRow>{{Text("fixations"), write<exportFixations>, fixationWord},
                           {Text("clusters"), write<exportClusters>, clusterWord},
                           {Text("events"), write<exportEvents>, fixationWord},
                           {Text("cumulative-clusters"), write<exportCumulativeClusters>, cumulativeClusterWord}} +
           statisticsTables();
}
