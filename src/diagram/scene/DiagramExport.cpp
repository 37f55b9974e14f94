// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/scene/DiagramExport.h"

#include "base/FileReplacement.h"
#include "diagram/ChordFiles.h"
#include "diagram/ChordShapes.h"
#include "visualization/scene/ImageExport.h"
#include "visualization/scene/SceneItems.h"

#include <QGraphicsScene>

std::optional<QString> exportDiagram(const ChordData &data, const QString &path)
{
    if (path.endsWith(QLatin1StringView(".html"), Qt::CaseInsensitive)) {
        const auto problem = replaceFile(path, standalonePage(data));
        return problem ? std::optional(writeFailure(path, *problem)) : std::nullopt;
    }
    QGraphicsScene scene;
    scene.setBackgroundBrush(Qt::white);
    addItems(scene, chordShapes(data));
    return exportScene(
        scene, path,
        {.title = QStringLiteral("Vistrum 2014 transition diagramm"),                                      // sic
         .description = QStringLiteral("An Eye-Tracking recording transition diagramm by Vistrum 2014")}); // sic
}
