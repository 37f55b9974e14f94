// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/parameters/VisualizationParameters.h"

/// What the calculation report tells of a record, by what a mode draws of it: lines of HTML.
namespace modereport {

QString shadowMap(const VisualizationParameters &record);
QString heatmap(const VisualizationParameters &record);
QString fixationHeatmap(const VisualizationParameters &record);
QString clusterHeatmap(const VisualizationParameters &record);
QString points(const VisualizationParameters &record);
QString borders(const VisualizationParameters &record);
QString fixationCircles(const VisualizationParameters &record);
QString clusterEllipses(const VisualizationParameters &record);
QString clusterCircles(const VisualizationParameters &record);
QString transitions(const VisualizationParameters &record);
QString arrows(const VisualizationParameters &record);
QString angleStar(const VisualizationParameters &record);
QString chart(const VisualizationParameters &record);
QString saccadeChart(const VisualizationParameters &record);

} // namespace modereport
