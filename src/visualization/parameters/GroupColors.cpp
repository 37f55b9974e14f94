#include "visualization/parameters/GroupColors.h"

Group::ColorTable groupColors(const VisualizationParameters &gazePoints, const VisualizationParameters &fixations,
                              const VisualizationParameters &clusters, const VisualizationParameters &saccades)
{
    const std::pair<QString, const VisualizationParameters &> kinds[] = {
        {QStringLiteral("gazepoints"), gazePoints},
        {QStringLiteral("fixations"), fixations},
        {QStringLiteral("fixationClusters"), clusters},
        {QStringLiteral("saccades"), saccades},
    };
    Group::ColorTable colors;
    for (const auto &[kind, parameters] : kinds) {
        colors[kind + QStringLiteral("Left")] = parameters.fillColorLeft;
        colors[kind + QStringLiteral("Right")] = parameters.fillColorRight;
        colors[kind + QStringLiteral("Dominant")] = parameters.fillColor;
    }
    return colors;
}
