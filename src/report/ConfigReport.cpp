// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/ConfigReport.h"

#include "report/ReportLines.h"
#include "visualization/modes/AoiModes.h"

#include <cmath>
#include <iterator>

namespace {

using namespace reportlines;
using Record = VisualizationParameters;
using Text = const char *;

/// The lines of a mode behind its own.
using Lines = QString (*)(const Record &);

struct Block {
    Text mode; ///< null: no lines at all
    Lines lines;
};

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

QString shadowMap(const Record &record)
{
    return kernel(record) + line("Threashold:", record.heatmapThreashold) + line("Shadow Power:", record.power) + // sic
           line("Shadow Transparency:", record.shadowTransparency);
}

QString heatmapIn(const Record &record, Text unit)
{
    return kernel(record) + line("Threashold:", record.heatmapThreashold, unit) + // sic
           line("Absolut maxima:", wholePower(record), unit) +                    // sic
           line("Heatmap colormap:", colorMapName(record.heatmapColormap));
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

QString colors(const Record &record)
{
    return line("Dominant color (red|green|blue):", record.fillColor) +
           line("Left color (red|green|blue):", record.fillColorLeft) +
           line("Right color (red|green|blue):", record.fillColorRight);
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

QString fixationCirclesRemark(const Record &record)
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

/// In the order of the modes, from the second on.
constexpr Block gazePointBlocks[] = {{"GazePoint Visualisationmode:Point", points},
                                     {"GazePoint Visualisationmode:Heatmap", heatmap},
                                     {"GazePoint Visualisationmode:Shadowmap", shadowMap}};
constexpr Block fixationBlocks[] = {
    {"Fixations Visualisationmode:Elliptic", borders},
    {"Fixations Visualisationmode:Circular", fixationCirclesRemark},
    {"Fixations Visualisationmode:Heatmap", fixationHeatmap},
    {"Fixations Visualisationmode:Shadowmap", shadowMap},
    {"Fixations Visualisationmode:Histogram", chart},
    {"Fixations Visualisationmode:Histogram seperated", chart}, // sic
};
constexpr Block clusterBlocks[] = {
    {"Fixationclusters Visualisationmode:Elliptic", clusterEllipses},
    {"Fixationclusters Visualisationmode:Circular", clusterCircles},
    {"Fixationclusters Visualisationmode:Heatmap", clusterHeatmap},
    {"Fixationclusters Visualisationmode:Shadowmap", shadowMap},
    {"Fixationclusters Visualisationmode:Cumulativ elliptic", clusterEllipses}, // sic
    {"Fixationclusters Visualisationmode:Cumulativ circle", clusterCircles},    // sic
    {"Fixationclusters Visualisationmode:Transitions", transitions},
    {"Fixationclusters Visualisationmode:Cumulativ Transitions", transitions}, // sic
    {"Fixationclusters Visualisationmode:Cluster + Cumulativ Transitions", transitions},
};
constexpr Block saccadeBlocks[] = {
    {"Saccades Visualisationmode:Arrows", arrows},
    {"Saccades Visualisationmode:Anglestar", angleStar},
    {"Saccades Visualisationmode:Heatmap", heatmap},
    {"Saccades Visualisationmode:Shadowmap", shadowMap},
    {"Saccades Visualisationmode:Histogram", saccadeChart},
    {"Saccades Visualisationmode:Histogram seperated", saccadeChart}, // sic
    {"Saccades Visualisationmode:Histogram sac vs fix", chart},
};

template <std::size_t N>
QString blockOf(const Record &record, const Block (&blocks)[N])
{
    const int place = record.visualizationMode - 1;
    if (place < 0 || static_cast<std::size_t>(place) >= N)
        return {};
    return line(blocks[place].mode) + blocks[place].lines(record);
}

QString saccadeClusterBlock(const ReportRecords &records)
{
    const SaccadeClusterStyle &style = records.saccadeClusterStyle;
    switch (records.saccadeClusterMode) {
    case SaccadeClusterMode::None:
        break;
    case SaccadeClusterMode::Lines:
        return line("Saccade clusters visualization mode: lines") + line("Line width: ", style.lineWidthPx) +
               line(style.showArrowTips ? "Show arrowtips: true" : "Show arrowtips: false") +
               line("Minimum saccades per cluster: ", style.minimumQuantity);
    case SaccadeClusterMode::SingleLine:
        return line("Saccade clusters visualization mode: single lines") +
               line("Line width: >", style.lineWidthPx) + // sic
               line("Minimum saccades per cluster: ", style.minimumQuantity);
    }
    return {};
}

QString areaBlock(const AoiVisualizationParameters &record)
{
    constexpr Text names[] = {"", "Outlined", "Transition diagram(external)", "Transition diagram(internally)"};
    const AoiMode *mode = aoiMode(record.drawMode);
    if (!mode || record.drawMode == 0)
        return {};
    const auto place = static_cast<std::size_t>(record.drawMode);
    const QString name = place < std::size(names) ? QString::fromLatin1(names[place]) : QString(mode->name);
    const QString window = mode->options.testFlag(AoiModeOption::TimeWindow)
                               ? line("Time window:", record.timeWindowMs, " ms")
                               : QString();
    return line("AOI Visualisationmode:", name) + window + line("Display names:", record.displayNames) +
           line("Border width:", record.borderWidth) + line("Fill opacity:", record.fillOpacity) +
           line("Color (red|green|blue):", record.color);
}

} // namespace

QString reportConfig(const DrawingContext &context, const ReportRecords &records)
{
    return QStringLiteral("CONFIG:<br>") + dashes + blockOf(context.of(DataKind::GazePoints), gazePointBlocks) +
           blockOf(context.of(DataKind::Fixations), fixationBlocks) +
           blockOf(context.of(DataKind::Clusters), clusterBlocks) +
           blockOf(context.of(DataKind::Saccades), saccadeBlocks) + saccadeClusterBlock(records) +
           areaBlock(context.areas) + dashes;
}
