// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/scene/ChartExport.h"

#include "base/FileReplacement.h"
#include "export/ChartTable.h"
#include "visualization/charts/AoiCharts.h"
#include "visualization/charts/ChartKinds.h"
#include "visualization/scene/ImageExport.h"
#include "visualization/scene/SceneItems.h"

#include <QGraphicsScene>

std::optional<QString> exportChart(const ChartKind &kind, const DrawingContext &context, const QString &path)
{
    if (kind.owner == ChartOwner::Areas) {
        if (const auto reason = emptyAoiChart(context.model))
            return writeFailure(path, *reason);
    }
    if (path.endsWith(QLatin1StringView(".csv"), Qt::CaseInsensitive)) {
        const auto problem = replaceFile(path, chartTable(kind.build(context)).toUtf8());
        return problem ? std::optional(writeFailure(path, *problem)) : std::nullopt;
    }
    QGraphicsScene scene;
    scene.setBackgroundBrush(Qt::white);
    addItems(scene, chartDrawing(kind, context));
    return exportScene(scene, path);
}
