// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>

/// What regions are searched in. The values are those of the dialog's list.
enum class RegionSource {
    GazePoints = 0,
    Fixations = 1,
    Clusters = 2,
    CumulativeClusters = 3,
    SaliencyItti = 4,
    SaliencyFrequencyTuned = 5,
    SaliencyIntegratedFeatures = 6
};
constexpr bool isSaliency(RegionSource source)
{
    return source >= RegionSource::SaliencyItti;
}

enum class RegionMethod { Standard = 0, Gradient = 1 };
enum class RegionExport { Aois = 0, CumulativeClusters = 1 };

/// How regions are found.
struct RegionParameters {
    RegionSource source = RegionSource::GazePoints;
    RegionMethod method = RegionMethod::Standard;
    int sigma = 50;               ///< of the kernel: px for gaze points, else a factor of the axes' lengths
    int size = 100;               ///< width of the kernel, px; seeds of the gradient search lie half of it apart
    int preThresholdPercent = 10; ///< of the highest density
    int windowPx = 250;           ///< side of the tiles with one maximum each
    int thresholdPercent = 50;    ///< of a region's maximum
    int minimumRegion = 50;       ///< a contour needs more vertices than this
    int maximumRegionPx = 100000; ///< rings about a maximum, at most one less

    bool operator==(const RegionParameters &) const = default;
};

/// One number of the search, for whatever shows or reads it.
struct RegionNumber {
    QLatin1StringView name; ///< on the command line
    int RegionParameters::*member;
    int lowest;
    int highest;
    int step;
    bool servesGradient; ///< the gradient search asks for it, too
};

inline constexpr RegionNumber regionNumbers[] = {
    {QLatin1StringView("sigma"), &RegionParameters::sigma, 10, 100, 1, true},
    {QLatin1StringView("size"), &RegionParameters::size, 50, 200, 1, true},
    {QLatin1StringView("pre-threshold"), &RegionParameters::preThresholdPercent, 1, 95, 1, true},
    {QLatin1StringView("window"), &RegionParameters::windowPx, 50, 500, 10, false},
    {QLatin1StringView("threshold"), &RegionParameters::thresholdPercent, 10, 100, 1, false},
    {QLatin1StringView("min-region"), &RegionParameters::minimumRegion, 10, 1000, 10, true},
    {QLatin1StringView("max-region"), &RegionParameters::maximumRegionPx, 100, 100000, 1, false},
};
