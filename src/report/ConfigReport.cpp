// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/ConfigReport.h"

#include "visualization/modes/AoiModes.h"
#include "visualization/modes/DrawingModes.h"
#include "visualization/modes/ReportLines.h"

namespace {

using reportlines::dashes, reportlines::line;

QString blockOf(DataKind kind, const VisualizationParameters &record)
{
    static constexpr ByDataKind<const char *> heads{
        {"GazePoint Visualisationmode:", "Fixations Visualisationmode:", "Fixationclusters Visualisationmode:",
         "Saccades Visualisationmode:"}};
    const DataMode *mode = modeAt(drawingModes(kind), record.visualizationMode);
    if (!mode || !mode->report.lines)
        return {};
    return line(heads[kind], QString(mode->report.word)) + mode->report.lines(record);
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
    const AoiMode *mode = aoiMode(record.drawMode);
    if (!mode || record.drawMode == 0)
        return {};
    const QString name = mode->report.isNull() ? mode->name : mode->report;
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
    QString text = QStringLiteral("CONFIG:<br>") + dashes;
    for (const DataKind kind : allDataKinds)
        text += blockOf(kind, context.of(kind));
    return text + saccadeClusterBlock(records) + areaBlock(context.areas) + dashes;
}
