// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/AreaOfInterest.h"

/// An area that was made by the program. Each gets a random colour when it is made.
struct GeneratedAoi {
    AreaOfInterest aoi;
    QString oldName; ///< what the insertion takes for the area's name so far; null without one

    bool operator==(const GeneratedAoi &) const = default;
};

/// The areas alone.
inline QList<AreaOfInterest> aoisOf(const QList<GeneratedAoi> &generated)
{
    QList<AreaOfInterest> aois;
    for (const GeneratedAoi &each : generated)
        aois << each.aoi;
    return aois;
}
