#include "visualization/parameters/VisualizationParameters.h"

#include "model/Group.h"

#include <algorithm>

namespace {

using ColorRow = Parameter<VisualizationParameters, QColor>;

struct DerivedColor {
    const ColorRow &fill;
    const ColorRow &border;
};

constexpr DerivedColor derivedColors[] = {
    {rows::fillColor, rows::borderColor},
    {rows::fillColorLeft, rows::borderColorLeft},
    {rows::fillColorRight, rows::borderColorRight},
};

} // namespace

VisualizationParameters loadedParameters(const QString &settingsPath, const QString &settingsName)
{
    VisualizationParameters parameters;
    parameters.settingsPath = settingsPath;
    parameters.settingsName = settingsName;
    setInitialValues(parameters, rows::visualization);
    loadParameters(parameters, rows::visualization);
    return parameters;
}

VisualizationParameters gazePointParameters()
{
    return loadedParameters(QStringLiteral("Visualization/Gazepoint"), QStringLiteral("GazepointVisualization"));
}

VisualizationParameters fixationParameters()
{
    return loadedParameters(QStringLiteral("Visualization/Fixation"), QStringLiteral("FixationVisualization"));
}

VisualizationParameters clusterParameters()
{
    return loadedParameters(QStringLiteral("Visualization/Fixationcluster"),
                            QStringLiteral("FixationclusterVisualization"));
}

VisualizationParameters saccadeParameters()
{
    return loadedParameters(QStringLiteral("Visualization/Saccade"), QStringLiteral("SaccadeVisualization"));
}

QColor borderColorFor(const QColor &fill, int borderType)
{
    constexpr auto first = static_cast<int>(Group::Shade::Light);
    constexpr auto last = static_cast<int>(Group::Shade::Dark);
    return shaded(fill, static_cast<Group::Shade>(std::clamp(borderType, first, last)));
}

void updateDerived(VisualizationParameters &parameters, QLatin1StringView key)
{
    for (const auto &[fill, border] : derivedColors) {
        if (key == fill.key || key == rows::borderType.key)
            setParameter(parameters, border, borderColorFor(parameters.*fill.member, parameters.borderType));
    }
}
