// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/RunCharts.h"

#include "batch/RunState.h"
#include "batch/StoredRecords.h"
#include "diagram/scene/DiagramExport.h"
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

void exportDiagram(RunState &run)
{
    const QString &path = run.options.diagramFile;
    if (path.isEmpty())
        return;
    const StoredRecords records(run.options.drawValues);
    const DrawingContext context = records.context(run.model);
    const auto type = static_cast<TransitionType>(records.areas.transitionType);
    std::optional<QString> problem = emptyDiagram(run.model);
    if (problem)
        problem = path + QStringLiteral(": ") + *problem;
    else
        problem = exportDiagram(chordData(run.model, context.eyeMode, type, context.frame), path);
    if (problem)
        run.journal.fail(QStringLiteral("Diagram"), *problem);
    else
        run.journal.keep(path);
}
