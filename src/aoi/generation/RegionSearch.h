// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/generation/GeneratedAoi.h"
#include "aoi/generation/RegionDensity.h"

/// What a search found. One that did not take place has no regions.
struct RegionSearch {
    RegionMethod method = RegionMethod::Standard;
    Grid<quint8> marks{};  ///< of the standard search: 0 outside, 1 inside, 2 border of a region; else empty
    Grid<int> labels{};    ///< of the gradient search: number of the region from 1, 0 outside; else empty
    QList<QPoint> seeds{}; ///< the maximum of each region, px
    int droppedMaxima = 0; ///< of the standard search: maxima beyond the first 500
};

/// Searches regions in a density, with progress.
/// @return nothing when stopped.
std::optional<RegionSearch> searchRegions(const RegionDensity &density, const RegionParameters &parameters,
                                          const std::stop_token &stop = {});

/// What the log is told about a search; empty where there is nothing to tell.
QString searchRemark(const RegionSearch &search);

/// The regions, 2560 x 1600: red ones of the standard search, coloured ones with black borders of the gradient search;
/// transparent outside.
QImage regionLayer(const RegionSearch &search);

/// Borders of the regions with more than `minimumVertices` vertices, in the order in which they are found.
QList<QPolygon> regionContours(const RegionSearch &search, int minimumVertices);

/// These borders as areas of interest, named "HeatmapAOI(2)" and so on, or "AOI 1" and so on for the gradient search.
QList<GeneratedAoi> regionAois(const RegionSearch &search, int minimumVertices);
