// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/StoredRecords.h"

#include "batch/DrawValues.h"
#include "settings/StoredKeys.h"

StoredRecords::StoredRecords(const QStringList &drawValues)
    : kinds{{gazePointParameters(), fixationParameters(), clusterParameters(), saccadeParameters()}}
    , areas(storedAoiVisualization())
{
    for (VisualizationParameters &each : kinds.values)
        drawvalues::apply(drawValues, each);
    drawvalues::apply(drawValues, areas);
}

DrawingContext StoredRecords::context(const DataModel &model) const
{
    DrawingRecords records;
    for (const DataKind kind : allDataKinds)
        records[kind] = &kinds[kind];
    return {.model = model, .eyeMode = eyeMode(), .frame = model.timeFrame(), .records = records, .areas = areas};
}
