// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Truncation.h"
#include "model/AreaOfInterest.h"
#include "model/PolygonIndex.h"

#include <vector>

/// The areas of interest, made ready for the questions of many samples: the answers of `AreaOfInterest::contains`.
class AoiIndex {
public:
    struct Area {
        explicit Area(const AreaOfInterest &area)
            : winding(area.polygon, Qt::WindingFill)
            , oddEven(area.polygon, Qt::OddEvenFill)
        {
        }

        PolygonIndex winding;
        PolygonIndex oddEven;
    };

    explicit AoiIndex(const QList<AreaOfInterest> &areas) : m_areas(areas.cbegin(), areas.cend()) {}

    const Area &operator[](qsizetype area) const { return m_areas[static_cast<size_t>(area)]; }
    qsizetype size() const { return static_cast<qsizetype>(m_areas.size()); }

    /// The whole pixel of a position: each coordinate is cut towards zero.
    static QPoint pixelOf(double x, double y) { return {truncated(x), truncated(y)}; }

private:
    std::vector<Area> m_areas;
};
