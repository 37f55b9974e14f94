// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>
#include <QString>

/// The names of generated areas. They stand in saved files, and a second run replaces areas by their names, so that
/// their numbers stay as they are.
namespace generated {

/// Of the area with this number, counted from 1: one higher, so that the first area is "KIND(2)".
inline QString nameFromTwo(QLatin1StringView kind, int number)
{
    return QStringLiteral("%1(%2)").arg(kind).arg(number + 1);
}

/// What the insertion gets as the name so far.
inline QString oldName(int number)
{
    return QStringLiteral("Cluster%1").arg(number);
}

} // namespace generated
