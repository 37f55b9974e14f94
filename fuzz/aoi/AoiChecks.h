// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/AoiFile.h"
#include "Check.h"

#include <algorithm>
#include <cmath>

/// What holds for each area that was read: it can be named, drawn and measured.
inline void checkReadAreas(const QList<AreaOfInterest> &areas)
{
    constexpr int farthest = 1'000'000'000; // px; beyond it nothing is read
    for (const AreaOfInterest &area : areas) {
        check(!area.name.isEmpty() && !area.polygon.isEmpty());
        check(area.color.isValid());
        check(std::isfinite(area.area()) && area.area() >= 0);
        for (const QPoint &vertex : area.polygon)
            check(std::max(std::abs(vertex.x()), std::abs(vertex.y())) <= farthest);
    }
}

/// A file is read, or it is told why not; what was left out of it is told, too.
inline void checkTold(const AoiFileContents &contents)
{
    check(contents.error.isEmpty() || contents.aois.isEmpty());
    check(contents.remarks.isEmpty() == (contents.badVertexLines == 0 && contents.unfinishedBlocks == 0));
    for (const QString &remark : contents.remarks)
        check(!remark.isEmpty());
}

/// Nothing is left out of what the program wrote itself.
inline void checkWhole(const AoiFileContents &contents)
{
    check(contents.error.isEmpty() && contents.remarks.isEmpty());
}
