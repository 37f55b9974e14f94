// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/FixationSettingsModel.h"
#include "detection/SpeedThreshold.h"
#include "detection/VelocityScanpathBuilder.h"

#include <optional>

/// Where the picture was seen, as the velocity detector has it; nothing where it does not measure angles, or has not
/// yet.
inline std::optional<ViewingGeometry> viewingGeometry(const FixationSettingsModel &settings)
{
    const bool isKnown = settings.velocityUnit == static_cast<int>(VelocityUnit::DegreePerS) &&
                         settings.velocityImageSizePixels > 0 && settings.velocityScreenDistance > 0;
    if (!isKnown)
        return std::nullopt;
    return ViewingGeometry{settings.velocityScreenDistance, settings.velocityImageSize,
                           static_cast<double>(settings.velocityImageSizePixels)};
}

/// Size of a pixel as part of the distance from eye to picture; nothing without geometry.
inline std::optional<double> pixelPerDistance(const FixationSettingsModel &settings)
{
    const std::optional<ViewingGeometry> geometry = viewingGeometry(settings);
    if (!geometry)
        return std::nullopt;
    return geometry->imageSizeM / geometry->imageWidthPx / geometry->screenDistanceM;
}

/// The settings as they are stored: the geometry of the last velocity calculation, where it measured angles. Reads the
/// unit as it was stored: the form in which settings are loaded forgets it, and would store the percentile instead.
inline FixationSettingsModel storedVelocitySettings()
{
    FixationSettingsModel settings;
    loadParameters(settings, rows::fixation);
    bool isNumber = false;
    const int unit = SettingsStore().value(rows::velocityUnit.key).toString().toInt(&isNumber);
    if (isNumber)
        settings.velocityUnit = unit;
    return settings;
}

inline std::optional<double> storedPixelPerDistance()
{
    return pixelPerDistance(storedVelocitySettings());
}

inline std::optional<ViewingGeometry> storedGeometry()
{
    return viewingGeometry(storedVelocitySettings());
}
