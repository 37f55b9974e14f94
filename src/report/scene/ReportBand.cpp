// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/scene/ReportBand.h"

#include "report/HeatmapLegend.h"
#include "visualization/scene/SceneItems.h"

#include <QGraphicsScene>
#include <QGraphicsTextItem>

void addReportBand(QGraphicsScene &scene, const QRectF &picture, const AppendedParts &parts,
                   const QList<HeatmapFigures> &figures, const DrawingContext &context, const ReportRecords &records)
{
    constexpr double margin = 10; // px
    double bottom = picture.bottom();
    if (parts.legends) {
        const HeatmapLegend legend = heatmapLegend(figures, context, {picture.left() + margin, bottom});
        addItems(scene, legend.drawing);
        bottom += legend.height;
    }
    if (!parts.parameters)
        return;
    constexpr int points = 30;
    QGraphicsTextItem *text = scene.addText({}, QFont(QStringLiteral("Times New Roman"), points, QFont::Light));
    text->setHtml(reportTable(calculationReport(context, records), picture.width()));
    text->setPos(picture.left() + margin, bottom);
    scene.setBackgroundBrush(Qt::black);
}
