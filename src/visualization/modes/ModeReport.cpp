// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/modes/ModeReport.h"

#include "visualization/modes/ReportLines.h"

#include <cmath>
#include <iterator>

namespace modereport {

using reportlines::line;
using Record = VisualizationParameters;
using Text = const char *;

namespace {

QString colorMapName(int map)
{
    constexpr Text names[] = {"RED GREEN", "BLUE", "FOCAL POINT", "SUNRISE", "CLOUD", "CUSTOM"};
    const auto place = static_cast<std::size_t>(map);
    return place < std::size(names) ? QString::fromLatin1(names[place]) : QString::number(map);
}

QString borderTypeName(int type)
{
    constexpr Text names[] = {"Brighter", "Same", "Darker"};
    const auto place = static_cast<std::size_t>(type);
    return place < std::size(names) ? QString::fromLatin1(names[place]) : QString::number(type);
}

/// What the panel shows of `power` where the field is a whole number.
int wholePower(const Record &record)
{
    constexpr double step = 100;
    return qRound(record.power * step);
}

QString kernel(const Record &record)
{
    return line("Size:", record.normalDistributionWidth) + line("Intensity:", record.normalDistributionSigma);
}

QString heatmapIn(const Record &record, Text unit)
{
    return kernel(record) + line("Threashold:", record.heatmapThreashold, unit) + // sic
           line("Absolut maxima:", wholePower(record), unit) +                    // sic
           line("Heatmap colormap:", colorMapName(record.heatmapColormap));
}

QString colors(const Record &record)
{
    return line("Dominant color (red|green|blue):", record.fillColor) +
           line("Left color (red|green|blue):", record.fillColorLeft) +
           line("Right color (red|green|blue):", record.fillColorRight);
}

} // namespace

QString shadowMap(const Record &record)
{
    return kernel(record) + line("Threashold:", record.heatmapThreashold) + line("Shadow Power:", record.power) + // sic
           line("Shadow Transparency:", record.shadowTransparency);
}

QString heatmap(const Record &record)
{
    return heatmapIn(record, "");
}

QString fixationHeatmap(const Record &record)
{
    return heatmapIn(record, record.percentMode ? "%" : " fix/min");
}

QString clusterHeatmap(const Record &record)
{
    return heatmapIn(record, record.percentMode ? "%" : " clu/min");
}

QString points(const Record &record)
{
    return line("Point size:", record.size) + line("Step size:", record.stepSize) + colors(record);
}

QString borders(const Record &record)
{
    return line("Border width:", record.borderWidth) + line("Fill opacity:", record.fillOpacity) +
           line("Border type:", borderTypeName(record.borderType)) + colors(record);
}

QString fixationCircles(const Record &record)
{
    return borders(record) + line("Circle size:", record.size) + line("Duration dependent:", record.durationDependent);
}

QString clusterEllipses(const Record &record)
{
    return line("Show cluster points:", record.showGazePoints) + borders(record);
}

QString clusterCircles(const Record &record)
{
    return clusterEllipses(record) + line("Circle size:", record.size);
}

QString transitions(const Record &record)
{
    return line("Cluster size:", record.size) + line("Maximal line size:", record.stepSize) +
           line("Draw cluster elliptical:", record.showGazePoints) + line("Show names:", record.showOriginalSize) +
           line("Transitions only:", record.transitionsOnly) + line("Line size absolute:", record.lineSizeAbsolute) +
           line("Transitions per Minute:", record.heatmapThreashold) +
           line("Cluster color (red|green|blue):", record.fillColor) +
           line("Left color (red|green|blue):", record.fillColorLeft) +
           line("Right color (red|green|blue):", record.fillColorRight);
}

QString arrows(const Record &record)
{
    return line("Show arrow tip:", record.showArrowTip) + line("Line thickness:", record.size) +
           line("Step size:", record.stepSize);
}

QString angleStar(const Record &record)
{
    return line("Number of histogramm bins:", record.numberOfHistogramBins) + // sic
           line("Angle offset:", record.angleOffset) + line("Show quantity:", record.showQuantityArcs) +
           line("Show duration:", record.showDurationArcs) + line("Show length:", record.showLenghtArcs) +
           line("Solid quantity:", record.quantityArcsHighlight) +
           line("Solid duration:", record.durationArcsHighlight) + line("Solid length:", record.lenghtArcsHighlight);
}

QString chart(const Record &record)
{
    constexpr double step = 100;
    return line("Time window:", std::ceil(record.power * step), " ms") + line("Use curves:", record.showOriginalSize) +
           line("Use splines:", record.showGazePoints) + line("Lines only:", record.transitionsOnly);
}

QString saccadeChart(const Record &record)
{
    return chart(record) + line("Length dependent:", record.lengthDependent);
}

} // namespace modereport
