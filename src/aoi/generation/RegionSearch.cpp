// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/RegionSearch.h"

#include "aoi/generation/GeneratedName.h"
#include "aoi/generation/GradientSearch.h"
#include "aoi/generation/RegionSteps.h"
#include "aoi/generation/StandardSearch.h"
#include "base/StoppableProgress.h"

namespace {

constexpr int stepCount = 4;

constexpr QLatin1StringView progressLabel("Searching for regions, please wait.");

std::optional<RegionSearch> searchStandard(const RegionDensity &density, const RegionParameters &parameters,
                                           const std::stop_token &stop)
{
    using namespace standardsearch;
    StoppableProgress progress(progressLabel, stepCount, stop);
    RegionSearch search{.method = RegionMethod::Standard};
    Grid<double> values = blockSums(density.cells);
    if (!progress.next())
        return std::nullopt;
    const double limit = parameters.preThresholdPercent / wholeInPercent * density.highest;
    values = regionsteps::aboveThreshold(std::move(values), limit);
    if (!progress.next())
        return std::nullopt;
    const Maxima maxima = tileMaxima(values, parameters.windowPx);
    search.droppedMaxima = maxima.dropped;
    search.seeds = distantMaxima(maxima.positions, values, parameters.windowPx);
    if (!progress.next())
        return std::nullopt;
    search.marks =
        grownRegions(values, search.seeds, parameters.thresholdPercent / wholeInPercent, parameters.maximumRegionPx);
    search.marks = withBorders(closedHoles(std::move(search.marks)));
    if (!progress.next())
        return std::nullopt;
    return search;
}

std::optional<RegionSearch> searchGradient(const RegionDensity &density, const RegionParameters &parameters,
                                           const std::stop_token &stop)
{
    using namespace gradientsearch;
    StoppableProgress progress(progressLabel, stepCount, stop);
    Smoothed smooth = smoothed(density.cells);
    if (!progress.next())
        return std::nullopt;
    const double limit = smooth.highest * (parameters.preThresholdPercent / wholeInPercent);
    const Grid<double> values = regionsteps::aboveThreshold(std::move(smooth.values), limit);
    const Grid<Direction> ways = ascents(values);
    if (!progress.next())
        return std::nullopt;
    Peaks found = peaks(values, ways, parameters.size / 2);
    if (!progress.next())
        return std::nullopt;
    RegionSearch search{.method = RegionMethod::Gradient};
    search.seeds = found.seeds;
    search.labels = flooded(std::move(found.labels), ways);
    if (!progress.next())
        return std::nullopt;
    return search;
}

} // namespace

std::optional<RegionSearch> searchRegions(const RegionDensity &density, const RegionParameters &parameters,
                                          const std::stop_token &stop)
{
    const bool isGradient = parameters.method == RegionMethod::Gradient;
    return isGradient ? searchGradient(density, parameters, stop) : searchStandard(density, parameters, stop);
}

QString searchRemark(const RegionSearch &search)
{
    if (search.droppedMaxima == 0)
        return {};
    return QStringLiteral("Regions were searched at the first 500 maxima; %1 more were dropped.")
        .arg(search.droppedMaxima);
}

QList<QPolygon> regionContours(const RegionSearch &search, int minimumVertices)
{
    if (search.method == RegionMethod::Standard)
        return standardsearch::contours(search.marks, minimumVertices);
    using namespace gradientsearch;
    return contours(thinned(hollowed(eroded(search.labels))), minimumVertices);
}

QList<GeneratedAoi> regionAois(const RegionSearch &search, int minimumVertices)
{
    QList<GeneratedAoi> aois;
    for (const QPolygon &contour : regionContours(search, minimumVertices)) {
        const auto number = static_cast<int>(aois.size() + 1);
        const QString name = search.method == RegionMethod::Standard
                                 ? generated::nameFromTwo(QLatin1StringView("HeatmapAOI"), number)
                                 : QStringLiteral("AOI %1").arg(number);
        aois.append({{name, contour}, generated::oldName(number)});
    }
    return aois;
}
