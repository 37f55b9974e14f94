// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/CalculationReport.h"

#include "clustering/ClusterTree.h"
#include "report/ConfigReport.h"
#include "visualization/modes/ReportLines.h"

#include <iterator>

namespace {

using reportlines::dashes, reportlines::line, reportlines::lineEnd;

/// Streams in the order of the report.
constexpr Eye eyes[] = {Eye::Dominant, Eye::Left, Eye::Right, Eye::Mean};

template <auto List>
QString counts(const char *kind, const Examination &examination)
{
    QStringList numbers;
    for (const Eye eye : eyes)
        numbers << QString::number((examination.stream(eye).*List).size());
    return QLatin1StringView(kind) + QLatin1StringView(" (dominant|left|right|mean):") + numbers.join(u'|') + lineEnd;
}

QString linesOf(const Examination &examination)
{
    return QStringLiteral("<br>Examination (Subject ID):") + examination.subjectId.toHtmlEscaped() + lineEnd +
           counts<&EyeData::gazePoints>("Gazepoints", examination) +
           counts<&EyeData::scanpath>("Fixations", examination) +
           counts<&EyeData::fixationClusters>("Fixationclusters", examination) +
           counts<&EyeData::saccades>("Saccades", examination);
}

QString linesOf(const AreaOfInterest &area)
{
    const QPoint center = area.centroid();
    return QStringLiteral("<br>AOI:%1  Mean position:(%2,%3)<br>")
        .arg(area.name.toHtmlEscaped())
        .arg(center.x())
        .arg(center.y());
}

QString eyesWord(EyeMode mode)
{
    constexpr const char *words[] = {"ALL", "DOMINANT", "LEFT", "RIGHT", "MEAN"};
    return QString::fromLatin1(words[static_cast<std::size_t>(mode)]);
}

// ---- calculations

QString standardFixationLines(const FixationSettingsModel &settings)
{
    return line("Fixation calculation:Standard") + line("Maximum radius:", settings.standardMaximumRadius) +
           line("Minimum duration:", settings.standardMinimumDuration) + line("Outlier:", settings.standardOutliers);
}

QString mixtureFixationLines(const FixationSettingsModel &settings)
{
    return line("Fixation calculation:Gaussian Mixture Model") +
           line("Minimum duration:", settings.gaussianMinimumDuration) +
           line("Merge sequential fixations:", settings.gaussianMergeSequential);
}

QString velocityFixationLines(const FixationSettingsModel &settings)
{
    constexpr const char *units[] = {"[pixel/ms]", "[°/s]", "percentile"};
    const auto unit = static_cast<std::size_t>(settings.velocityUnit);
    return line("Fixation calculation:Velocity based") + line("Velocity threshold:", settings.velocityThreshold) +
           line("Unit:", unit < std::size(units) ? QString::fromUtf8(units[unit]) : QString()) +
           line("Minimum duration:", settings.velocityMinimumDuration);
}

/// A type that is not known runs the standard detector.
QString fixationLines(const FixationSettingsModel &settings)
{
    constexpr QString (*texts[])(const FixationSettingsModel &) = {standardFixationLines, mixtureFixationLines,
                                                                   velocityFixationLines};
    const auto type = static_cast<std::size_t>(settings.calculationType);
    return type < std::size(texts) ? texts[type](settings) : standardFixationLines(settings);
}

QString clusterLines(const StandardClusterParameters &parameters)
{
    return line("Fixation cluster calculation:Standard") + line("Minimum fixations:", parameters.minimumFixations) +
           line("Overlap:", parameters.overlapAllowed) + line("Maximum radius:", parameters.maximumRadiusPx);
}

QString clusterLines(const MeanShiftClusterParameters &parameters)
{
    return line("Fixation cluster calculation:Mean-shift") + line("Gradient:", parameters.rate) +
           line("Iterations:", parameters.iterations) + line("Radius:", parameters.radiusPx) +
           line("Minimum fixations:", parameters.minimumFixations);
}

QString clusterLines(const OverlapClusterParameters &parameters)
{
    const QString outliers = parameters.outliers ? line("Outlier:", *parameters.outliers) : QString();
    return line("Fixation cluster calculation:Overlap") + line("Minimum fixations:", parameters.minimumFixations) +
           outliers;
}

/// One of the two steps of the clustering of saccades.
QString treeLines(int linkage, int cutoff, int minimumQuantity)
{
    const char *word = linkage == static_cast<int>(Linkage::Minimum)   ? "minimum"
                       : linkage == static_cast<int>(Linkage::Maximum) ? "maximum"
                                                                       : "average";
    return line("Linkage method: ", QString::fromLatin1(word), " ") + line("Tree cutoff value:", cutoff) +
           line("Minimum saccades per cluster:", minimumQuantity);
}

QString saccadeClusterLines(const SaccadeClusterParameters &p)
{
    const bool isEuclidean = p.distanceAlgorithm == static_cast<int>(DistanceAlgorithm::Euclidean);
    return line("Saccade cluster calculation") + line("Minimum saccade lenght:", p.minimumLength) + // sic
           line("Minimum saccade angle difference:", p.minimumAngleDifference) +
           line(p.directionDependent ? "Angle clustering: direction dependent "
                                     : "Angle clustering: direction independent ") +
           treeLines(p.angleLinkage, p.angleCutoff, p.minimumAngleQuantity) +
           line(isEuclidean ? "Distance clustering: euclidean distance " : "Distance clustering: manhattan distance ") +
           treeLines(p.distanceLinkage, p.distanceCutoff, p.minimumDistanceQuantity);
}

QString regionLines(const RegionParameters &regions)
{
    return line("AOI heatmap generation parameter") +
           line(regions.method == RegionMethod::Standard ? "Method:STANDARD" : "Method:GRADIENT") +
           line("Intesity:", regions.sigma, " I") + line("Size:", regions.size, " px") + // sic
           line("Pre threshold:", regions.preThresholdPercent, " %") + line("Threshold:", regions.thresholdPercent) +
           line("Min region size:", regions.minimumRegion) + line("Window size:", regions.windowPx);
}

} // namespace

QString reportData(const DataModel &model, EyeMode eyes, TimeFrame frame)
{
    const QLatin1StringView rule("<br>-------------<br>");
    const auto clock = [](qint64 timeMs) { return text::clockTime(timeMs, QStringLiteral("hh:mm:ss.zzz")); };
    QString text = QStringLiteral("Eye: ") + eyesWord(eyes) + rule +
                   QStringLiteral("Timespan (ms): %1ms to %2ms ").arg(frame.startMs).arg(frame.endMs) + rule +
                   QStringLiteral("Timespan (h:m:s.ms): %1 to %2 ").arg(clock(frame.startMs), clock(frame.endMs)) +
                   rule + QStringLiteral("DATA:<br>-------------");
    for (const Examination &examination : model.examinations())
        text += linesOf(examination);
    const QList<AreaOfInterest> areas = model.aoiList();
    if (!areas.isEmpty())
        text += QStringLiteral("<br>DATA:AOIs<br>-------------");
    for (const AreaOfInterest &area : areas)
        text += linesOf(area);
    return text;
}

QString reportCalculation(const ReportRecords &records)
{
    return QStringLiteral("CALCULATION PARAMETER:<br>") + dashes + fixationLines(records.fixations) +
           std::visit([](const auto &parameters) { return clusterLines(parameters); }, records.clusters) +
           saccadeClusterLines(records.saccadeClusters) + (records.regions ? regionLines(*records.regions) : QString());
}

CalculationReport calculationReport(const DrawingContext &context, const ReportRecords &records)
{
    return {reportData(context.model, context.eyeMode, context.frame), reportCalculation(records),
            reportConfig(context, records)};
}

QString reportTable(const CalculationReport &report, double sceneWidth)
{
    constexpr int columns = 3;
    const QString width = text::general6(sceneWidth / columns);
    const auto style = [&](const char *side) {
        return QStringLiteral("<div style='padding: 10px 10px 10px 10px;float:%1;width:%2px;background-color:#FFFFFF;"
                              "font-family:\"Times New Roman\";font-size:40px;font-weight:bold;color:#000000;'>")
            .arg(QLatin1StringView(side), width);
    };
    return QStringLiteral("<table border='0'  cellspacing='30' style=\"background-color:#000000;\"><tr><td>") +
           style("left") + report.data + QStringLiteral("</div> </td><td>") + style("left") + report.calculation +
           QStringLiteral("</div> </td><td> ") + style("right") + report.config +
           QStringLiteral("</div></td></tr></table>");
}
