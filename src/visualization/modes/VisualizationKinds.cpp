#include "visualization/modes/VisualizationKinds.h"

#include "visualization/modes/DrawingModes.h"

#include <algorithm>

namespace {

template <const auto &Modes>
QStringList namesOf()
{
    QStringList names;
    for (const auto &mode : Modes)
        names << mode.name;
    return names;
}

using Qt::StringLiterals::operator""_L1;

constexpr VisualizationKind kinds[] = {
    {gazePointParameters, "GazepointVisualization"_L1, "Points size:"_L1, namesOf<gazePointModes>},
    {fixationParameters, "FixationVisualization"_L1, "Circle size:"_L1, namesOf<fixationModes>},
    {clusterParameters, "FixationclusterVisualization"_L1, "Circles size:"_L1, namesOf<clusterModes>},
    {saccadeParameters, "SaccadeVisualization"_L1, "Line thickness:"_L1, namesOf<saccadeModes>},
};

} // namespace

std::span<const VisualizationKind, 4> visualizationKinds()
{
    return kinds;
}

int visualizationKindOf(const QString &settingsName)
{
    const auto found = std::find_if(std::begin(kinds), std::end(kinds),
                                    [&](const VisualizationKind &kind) { return kind.settingsName == settingsName; });
    return found == std::end(kinds) ? 0 : static_cast<int>(std::distance(std::begin(kinds), found));
}
