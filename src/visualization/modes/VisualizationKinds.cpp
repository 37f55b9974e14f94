// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/modes/VisualizationKinds.h"

#include <algorithm>

namespace {

using Qt::StringLiterals::operator""_L1;

constexpr VisualizationKind kindRows[] = {
    {DataKind::GazePoints, gazePointParameters, "GazepointVisualization"_L1, "Points size:"_L1},
    {DataKind::Fixations, fixationParameters, "FixationVisualization"_L1, "Circle size:"_L1},
    {DataKind::Clusters, clusterParameters, "FixationclusterVisualization"_L1, "Circles size:"_L1},
    {DataKind::Saccades, saccadeParameters, "SaccadeVisualization"_L1, "Line thickness:"_L1},
};

} // namespace

QStringList VisualizationKind::modeNames() const
{
    QStringList names;
    for (const DataMode &mode : drawingModes(kind))
        names << mode.name;
    return names;
}

std::span<const VisualizationKind, allDataKinds.size()> visualizationKinds()
{
    return kindRows;
}

DataKind visualizationKindOf(const QString &settingsName)
{
    const auto found = std::find_if(std::begin(kindRows), std::end(kindRows),
                                    [&](const VisualizationKind &row) { return row.settingsName == settingsName; });
    return found == std::end(kindRows) ? DataKind::GazePoints : found->kind;
}
