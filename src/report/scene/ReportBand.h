// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/AppendedParts.h"
#include "report/CalculationReport.h"
#include "visualization/heatmap/HeatmapFigures.h"

#include <QList>
#include <QRectF>

class QGraphicsScene;

/// Adds the legends and the report below the picture of a scene; with a report the ground is black. `TemporaryItems`
/// takes all of it away again.
///
/// @param picture  the part of the scene that stands above the band.
/// @param figures  of the heatmaps that the scene shows.
void addReportBand(QGraphicsScene &scene, const QRectF &picture, const AppendedParts &parts,
                   const QList<HeatmapFigures> &figures, const DrawingContext &context, const ReportRecords &records);
