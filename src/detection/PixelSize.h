#pragma once

#include "detection/FixationSettingsModel.h"
#include "detection/VelocityScanpathBuilder.h"

#include <optional>

/// Size of a pixel as part of the distance from eye to picture, as the velocity detector has it; nothing where it does
/// not measure angles, or has not yet.
inline std::optional<double> pixelPerDistance(const FixationSettingsModel &settings)
{
    const bool isKnown = settings.velocityUnit == static_cast<int>(VelocityUnit::DegreePerS) &&
                         settings.velocityImageSizePixels > 0 && settings.velocityScreenDistance > 0;
    if (!isKnown)
        return std::nullopt;
    return settings.velocityImageSize / settings.velocityImageSizePixels / settings.velocityScreenDistance;
}

/// The same by the stored settings: the geometry of the last velocity calculation, where it measured angles. Reads the
/// unit as it was stored: the form in which settings are loaded forgets it, and would store the percentile instead.
inline std::optional<double> storedPixelPerDistance()
{
    FixationSettingsModel settings;
    loadParameters(settings, rows::fixation);
    bool isNumber = false;
    const int unit = SettingsStore().value(rows::velocityUnit.key).toString().toInt(&isNumber);
    if (isNumber)
        settings.velocityUnit = unit;
    return pixelPerDistance(settings);
}
