// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/RunMethods.h"

#include "base/Release.h"
#include "batch/CalculationRows.h"
#include "batch/RunState.h"
#include "detection/StoredGeometry.h"
#include "settings/StoredKeys.h"

MethodsRecord methodsOf(const RunState &run, const QList<StreamQuality> &quality, const QStringList &failed)
{
    const BatchOptions &options = run.options;
    MethodsRun done{.release = releaseText(),
                    .failed = failed,
                    .detector = run.done.detector,
                    .clusters = run.done.clusters,
                    .pooledClusters = run.done.pooledClusters,
                    .statistics = options.tables,
                    .groupBy = options.groupBy,
                    .eyes = eyeMode(),
                    .pixelPerDistance = storedPixelPerDistance()};
    if (options.calculations.contains(saccadeClusterWord))
        done.saccadeClusters = options.saccadeClusters.parameters;
    QList<StreamQuality> used;
    for (const StreamQuality &each : quality) {
        if (run.model.examinations()[each.examination].checked)
            used << each;
    }
    return methodsRecord(run.model, done, used);
}
