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
