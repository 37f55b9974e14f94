// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "diagram/ChordData.h"

/// Three areas; half of the transitions lead from the first to the second.
inline ChordData sampleChords()
{
    return {{{QStringLiteral("Door, \"left\""), QColor(255, 0, 0, 90)},
             {QStringLiteral("</script><b>"), QColor(0, 160, 0)},
             {QStringLiteral("Sky"), QColor(0, 0, 255)}},
            {{0, 0.5, 0}, {0.25, 0.125, 0}, {0, 0.125, 0}}};
}

/// So many areas of different colours; each leads to the next but one and, less often, back to the one before.
inline ChordData ringChords(int areas)
{
    ChordData chords;
    constexpr int hues = 360;
    for (int i = 0; i < areas; ++i) {
        chords.areas << ChordData::Area{QStringLiteral("Area %1").arg(i + 1),
                                        QColor::fromHsv(hues * i / areas, 255, 200)};
        QList<double> row(areas, 0);
        row[(i + 2) % areas] += 0.75 / areas;
        row[(i + areas - 1) % areas] += 0.25 / areas;
        chords.shares << row;
    }
    return chords;
}
