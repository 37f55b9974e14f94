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

/// The same by the stored settings: the geometry of the last velocity calculation, where it measured angles.
inline std::optional<double> storedPixelPerDistance()
{
    FixationSettingsModel settings;
    loadFixationSettings(settings);
    return pixelPerDistance(settings);
}
