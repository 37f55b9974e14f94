// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/CalculationInfo.h"

#include <utility>

QString CalculationInfo::fixationParameters() const
{
    return fixationCalculationInfo.section(fixationsFoundLine, 0, 0) + fixationRemark;
}

QString CalculationInfo::report() const
{
    const std::pair<QLatin1StringView, QString> sections[] = {
        {QLatin1StringView("GazepointsVisualizationInfo:\n"), gazepointsVisualizationInfo},
        {QLatin1StringView("FixationCalculationInfo:\n"), fixationLines()},
        {QLatin1StringView("FixationVisualizationInfo:\n"), fixationVisualizationInfo},
        {QLatin1StringView("ClusterCalculationInfo:\n"), clusterCalculationInfo},
        {QLatin1StringView("ClusterVisualizationInfo:\n"), clusterVisualizationInfo},
        {QLatin1StringView("CumulativeClusterCalculationInfo:\n"), cumulativeClusterCalculationInfo},
        {QLatin1StringView("CumulativeClusterVisualizationInfo:\n"), cumulativeClusterVisualizationInfo},
    };
    constexpr int ruleWidth = 45;
    QString report;
    for (const auto &[caption, text] : sections)
        report += caption + text + QString(ruleWidth, u'-') + u'\n';
    return report;
}
