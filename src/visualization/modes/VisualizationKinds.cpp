// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/modes/VisualizationKinds.h"

#include "model/Group.h"

#include <algorithm>

namespace {

using Qt::StringLiterals::operator""_L1;

constexpr VisualizationKind kindRows[] = {
    {DataKind::GazePoints, gazePointParameters, "Points size:"_L1},
    {DataKind::Fixations, fixationParameters, "Circle size:"_L1},
    {DataKind::Clusters, clusterParameters, "Circles size:"_L1},
    {DataKind::Saccades, saccadeParameters, "Line thickness:"_L1},
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
    const auto found = std::find_if(allDataKinds.begin(), allDataKinds.end(),
                                    [&](DataKind kind) { return Group::kindNames[kind] == settingsName; });
    return found == allDataKinds.end() ? DataKind::GazePoints : *found;
}
