// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/StoredGeometry.h"

#include "detection/FixationSettingsModel.h"
#include "detection/VelocityScanpathBuilder.h"

namespace {

/// Reads the unit as it was stored: the form in which settings are loaded forgets it, and would store the percentile
/// instead.
FixationSettingsModel storedVelocitySettings()
{
    FixationSettingsModel settings;
    loadParameters(settings, rows::fixation);
    bool isNumber = false;
    const int unit = SettingsStore().value(rows::velocityUnit.key).toString().toInt(&isNumber);
    if (isNumber)
        settings.velocityUnit = unit;
    return settings;
}

} // namespace

std::optional<ViewingGeometry> storedGeometry()
{
    const FixationSettingsModel settings = storedVelocitySettings();
    const bool isKnown = settings.velocityUnit == static_cast<int>(VelocityUnit::DegreePerS) &&
                         settings.velocityImageSizePixels > 0 && settings.velocityScreenDistance > 0;
    if (!isKnown)
        return std::nullopt;
    return ViewingGeometry{settings.velocityScreenDistance, settings.velocityImageSize,
                           static_cast<double>(settings.velocityImageSizePixels)};
}

std::optional<double> storedPixelPerDistance()
{
    const std::optional<ViewingGeometry> geometry = storedGeometry();
    if (!geometry)
        return std::nullopt;
    return geometry->imageSizeM / geometry->imageWidthPx / geometry->screenDistanceM;
}
