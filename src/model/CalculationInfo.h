// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The line before the numbers of fixations in the text on their calculation.
inline constexpr QLatin1StringView fixationsFoundLine{"Fixations found:\n"};

/// How the data of an examination was last processed and drawn, in words for the user.
struct CalculationInfo {
    /// All seven texts with their captions, as shown on a double click in the table.
    QString report() const;

    /// How the fixations were calculated, with what is to be known beside it.
    QString fixationLines() const { return fixationCalculationInfo + fixationRemark; }

    /// The same without the numbers of fixations, which differ between recordings of one calculation.
    QString fixationParameters() const;

    bool operator==(const CalculationInfo &) const = default;

    QString gazepointsVisualizationInfo = QStringLiteral("Not set\n");
    QString fixationCalculationInfo = QStringLiteral("Not set\n");
    QString fixationRemark; ///< that the fixations are not those of the text above; empty, or ends with a line break
    QString fixationVisualizationInfo = QStringLiteral("Not set\n");
    QString clusterCalculationInfo = QStringLiteral("Not set\n");
    QString clusterVisualizationInfo = QStringLiteral("Not set\n");
    QString cumulativeClusterCalculationInfo = QStringLiteral("Not set\n");
    QString cumulativeClusterVisualizationInfo = QStringLiteral("Not set\n");
};
