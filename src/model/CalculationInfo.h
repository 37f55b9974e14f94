#pragma once

#include <QString>

/// How the data of an examination was last processed and drawn, in words for the user.
struct CalculationInfo {
    /// All seven texts with their captions, as shown on a double click in the table.
    QString report() const;

    bool operator==(const CalculationInfo &) const = default;

    QString gazepointsVisualizationInfo = QStringLiteral("Not set\n");
    QString fixationCalculationInfo = QStringLiteral("Not set\n");
    QString fixationVisualizationInfo = QStringLiteral("Not set\n");
    QString clusterCalculationInfo = QStringLiteral("Not set\n");
    QString clusterVisualizationInfo = QStringLiteral("Not set\n");
    QString cumulativeClusterCalculationInfo = QStringLiteral("Not set\n");
    QString cumulativeClusterVisualizationInfo = QStringLiteral("Not set\n");
};
