#include "batch/RunCharts.h"

#include "batch/RunState.h"
#include "batch/StoredRecords.h"
#include "export/scene/ChartExport.h"
#include "visualization/charts/ChartKinds.h"

void exportCharts(RunState &run)
{
    const StoredRecords records(run.options.drawValues);
    for (const ChartFile &chart : run.options.charts) {
        const ChartKind *kind = chartKind(chart.kind);
        if (const auto problem = exportChart(*kind, records.context(run.model), chart.path))
            run.journal.fail(QStringLiteral("Chart"), *problem);
        else
            run.journal.keep(chart.path);
    }
}
