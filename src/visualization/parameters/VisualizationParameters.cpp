// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/parameters/VisualizationParameters.h"

#include "model/Group.h"

#include <algorithm>

namespace {

using ColorRow = Parameter<VisualizationParameters, QColor>;

void derive(VisualizationParameters &parameters, const ColorRow &border, const ColorRow &fill)
{
    setParameter(parameters, border, borderColorFor(valueIn(parameters, fill), parameters.borderType));
}

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
    return loadedParameters(QStringLiteral("Visualization/Gazepoint"), Group::kindNames[DataKind::GazePoints]);
}

VisualizationParameters fixationParameters()
{
    return loadedParameters(QStringLiteral("Visualization/Fixation"), Group::kindNames[DataKind::Fixations]);
}

VisualizationParameters clusterParameters()
{
    return loadedParameters(QStringLiteral("Visualization/Fixationcluster"), Group::kindNames[DataKind::Clusters]);
}

VisualizationParameters saccadeParameters()
{
    return loadedParameters(QStringLiteral("Visualization/Saccade"), Group::kindNames[DataKind::Saccades]);
}

QColor borderColorFor(const QColor &fill, int borderType)
{
    constexpr auto first = static_cast<int>(Group::Shade::Light);
    constexpr auto last = static_cast<int>(Group::Shade::Dark);
    return shaded(fill, static_cast<Group::Shade>(std::clamp(borderType, first, last)));
}

void deriveBorderColor(VisualizationParameters &parameters)
{
    derive(parameters, rows::borderColor, rows::fillColor);
}

void deriveBorderColorLeft(VisualizationParameters &parameters)
{
    derive(parameters, rows::borderColorLeft, rows::fillColorLeft);
}

void deriveBorderColorRight(VisualizationParameters &parameters)
{
    derive(parameters, rows::borderColorRight, rows::fillColorRight);
}

void deriveBorderColors(VisualizationParameters &parameters)
{
    deriveBorderColor(parameters);
    deriveBorderColorLeft(parameters);
    deriveBorderColorRight(parameters);
}
