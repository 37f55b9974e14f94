// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/parameters/GroupColors.h"

Group::ColorTable groupColors(const DrawingRecords &records)
{
    Group::ColorTable colors;
    for (const DataKind kind : allDataKinds) {
        const QString entry = Group::tableNames[kind];
        colors[entry + QStringLiteral("Left")] = records[kind]->fillColorLeft;
        colors[entry + QStringLiteral("Right")] = records[kind]->fillColorRight;
        colors[entry + QStringLiteral("Dominant")] = records[kind]->fillColor;
    }
    return colors;
}
