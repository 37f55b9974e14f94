// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/scene/PictureExport.h"

#include "report/PictureLegend.h"
#include "report/scene/ReportBand.h"
#include "visualization/scene/ImageExport.h"
#include "visualization/scene/SceneItems.h"
#include "visualization/scene/TemporaryItems.h"
#include "visualization/shapes/FixationNumbers.h"

std::optional<QString> exportPicture(const DrawnPicture &picture, const PictureSettings &settings, const QString &path)
{
    const TemporaryItems added(picture.scene);
    if (settings.labelFixations)
        addItems(picture.scene, fixationNumbers(picture.context));
    QRectF area = settings.area == PictureArea::Stimulus ? picture.stimulus : picture.whole;
    if (settings.legend) {
        const PictureLegend legend = pictureLegend(picture.figures, picture.context, area);
        addItems(picture.scene, legend.drawing);
        area.setBottom(area.bottom() + legend.height);
    }
    const TemporaryItems band(picture.scene);
    addReportBand(picture.scene, area, settings.appended, picture.figures, picture.context, picture.records);
    area |= band.bounds();
    return exportScene(picture.scene, path, {.area = area, .scale = settings.scale, .ground = settings.ground});
}
