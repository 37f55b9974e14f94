// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/scene/PictureSettings.h"
#include "report/ReportRecords.h"
#include "visualization/heatmap/HeatmapFigures.h"
#include "visualization/selection/DrawingContext.h"

#include <QList>
#include <QRectF>
#include <QString>

#include <optional>

class QGraphicsScene;

/// A scene as the drawing pass left it.
struct DrawnPicture {
    QGraphicsScene &scene;
    QRectF whole;    ///< all that is drawn, px
    QRectF stimulus; ///< where the picture lies, px
    QList<HeatmapFigures> figures;
    const DrawingContext &context;
    const ReportRecords &records;
};

/// Writes the scene to a file, with what the settings add, and leaves it as it was. Endings and failures are those of
/// `exportScene`.
std::optional<QString> exportPicture(const DrawnPicture &picture, const PictureSettings &settings, const QString &path);
