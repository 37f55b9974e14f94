// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Group.h"

#include <QPalette>

Group::Group(QString name_, const ColorTable &colors) : name(std::move(name_))
{
    for (const DataKind kind : allDataKinds) {
        const QString entry = tableNames[kind];
        const QString key = kindNames[kind];
        colorsDominant[key] = colors.value(entry + QStringLiteral("Dominant"));
        colorsLeft[key] = colors.value(entry + QStringLiteral("Left"));
        colorsRight[key] = colors.value(entry + QStringLiteral("Right"));
    }
}

QColor shaded(const QColor &fill, Group::Shade shade)
{
    if (!fill.isValid())
        return {};
    const QPalette palette(fill);
    switch (shade) {
    case Group::Shade::Light:
        return palette.light().color();
    case Group::Shade::Midlight:
        return palette.midlight().color();
    case Group::Shade::Dark:
        break;
    }
    return palette.dark().color();
}
