// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/SimilarityMeasures.h"

#include "comparison/TimeWarping.h"

#include <cmath>

namespace {

using Text = QLatin1StringView;
using P = SimilarityParameters;
using Kind = SimilarityMeasure::Kind;

constexpr SimilarityParameter parameterRows[] = {
    {&P::gridColumns, Text("grid-columns"), Text("Grid: columns"), Text(), 1, 50, 0},
    {&P::gridRows, Text("grid-rows"), Text("Grid: rows"), Text(), 1, 50, 0},
    {&P::scanMatchColumns, Text("scanmatch-columns"), Text("ScanMatch: columns"), Text(), 1, 50, 0},
    {&P::scanMatchRows, Text("scanmatch-rows"), Text("ScanMatch: rows"), Text(), 1, 50, 0},
    {&P::scanMatchBinMs, Text("scanmatch-bin"), Text("ScanMatch: time bin"), Text(" ms"), 0, 10'000, 0},
    {&P::scanMatchThreshold, Text("scanmatch-threshold"), Text("ScanMatch: threshold"), Text(" cells"), 0.1, 70, 2},
    {&P::scanMatchGap, Text("scanmatch-gap"), Text("ScanMatch: gap"), Text(), -70, 0, 2},
    {&P::directionDegrees, Text("multimatch-direction"), Text("MultiMatch: direction below"), Text(" deg"), 0, 180, 1},
    {&P::durationMs, Text("multimatch-duration"), Text("MultiMatch: duration below"), Text(" ms"), 0, 60'000, 0},
    {&P::amplitudePercent, Text("multimatch-amplitude"), Text("MultiMatch: amplitude below"), Text(" % of diagonal"), 0,
     100, 2},
    {&P::recurrenceRadiusPx, Text("recurrence-radius"), Text("Recurrence: radius"), Text(" px"), 0, 5'000, 1},
    {&P::recurrenceLine, Text("recurrence-line"), Text("Recurrence: shortest line"), Text(" fixations"), 2, 100, 0},
};

constexpr double infinite = std::numeric_limits<double>::infinity();

/// In the order of `SimilarityMeasures::compare`.
constexpr SimilarityMeasure measureRows[] = {
    {Text("aoi_levenshtein"), Text("Areas: Levenshtein"), Kind::Similarity, 0, 1},
    {Text("aoi_needleman_wunsch"), Text("Areas: Needleman-Wunsch"), Kind::Similarity, -1, 1},
    {Text("grid_levenshtein"), Text("Grid: Levenshtein"), Kind::Similarity, 0, 1},
    {Text("grid_needleman_wunsch"), Text("Grid: Needleman-Wunsch"), Kind::Similarity, -1, 1},
    {Text("multimatch_vector"), Text("MultiMatch: vector"), Kind::Similarity, 0, 1},
    {Text("multimatch_direction"), Text("MultiMatch: direction"), Kind::Similarity, 0, 1},
    {Text("multimatch_length"), Text("MultiMatch: length"), Kind::Similarity, 0, 1},
    {Text("multimatch_position"), Text("MultiMatch: position"), Kind::Similarity, 0, 1},
    {Text("multimatch_duration"), Text("MultiMatch: duration"), Kind::Similarity, 0, 1},
    {Text("scanmatch"), Text("ScanMatch"), Kind::Similarity, 0, 1},
    {Text("dtw_distance_px"), Text("Time warping: distance"), Kind::Distance, 0, infinite},
    {Text("dtw_mean_distance_px"), Text("Time warping: mean distance"), Kind::Distance, 0, infinite},
    {Text("recurrence_percent"), Text("Recurrence"), Kind::Similarity, 0, 100},
    {Text("determinism_percent"), Text("Determinism"), Kind::Similarity, 0, 100},
    {Text("laminarity_percent"), Text("Laminarity"), Kind::Similarity, 0, 100},
    {Text("center_of_recurrence_mass"), Text("Centre of recurrence mass"), Kind::Neither, -100, 100},
};

constexpr double areaEqual = 1;
constexpr double areaOther = -1;
constexpr double wordGap = -1;
constexpr std::size_t fewestForMultiMatch = 3; // fixations

/// 1 for the same cell, -1 for opposite corners.
LetterScores linearScores(const PictureGrid &grid)
{
    const double farthest = grid.distance(0, grid.cells() - 1);
    LetterScores scores{grid.cells(), {}};
    for (int i = 0; i < grid.cells(); ++i) {
        for (int j = 0; j < grid.cells(); ++j)
            scores.values.push_back(farthest > 0 ? 1 - 2 * grid.distance(i, j) / farthest : 1.0);
    }
    return scores;
}

PictureGrid gridOf(double columns, double rows, QSizeF sizePx)
{
    return {static_cast<int>(columns), static_cast<int>(rows), sizePx};
}

} // namespace

std::span<const SimilarityParameter> similarityParameters()
{
    return parameterRows;
}

std::span<const SimilarityMeasure> similarityMeasures()
{
    return measureRows;
}

SimilarityMeasures::SimilarityMeasures(const SimilarityParameters &parameters, QSizeF pictureSizePx, int areas)
    : m_parameters(parameters)
    , m_pictureSizePx(pictureSizePx)
    , m_grid(gridOf(parameters.gridColumns, parameters.gridRows, pictureSizePx))
    , m_scanMatchGrid(gridOf(parameters.scanMatchColumns, parameters.scanMatchRows, pictureSizePx))
    , m_areaScores(equalityScores(areas, areaEqual, areaOther))
    , m_gridScores(linearScores(m_grid))
    , m_scanMatchScores(scanMatchScores(m_scanMatchGrid, parameters.scanMatchThreshold))
{
}

PreparedScanpath SimilarityMeasures::prepared(FixationPath path, ScanpathWord areas) const
{
    const double diagonal = std::hypot(m_pictureSizePx.width(), m_pictureSizePx.height());
    constexpr double percent = 0.01;
    PreparedScanpath ready{
        .path = std::move(path), .areas = std::move(areas), .grid = {}, .timedGrid = {}, .saccades = {}};
    ready.grid = gridWord(ready.path, m_grid);
    ready.timedGrid = timedGridWord(ready.path, m_scanMatchGrid, m_parameters.scanMatchBinMs);
    if (ready.path.size() >= fewestForMultiMatch)
        ready.saccades =
            simplified(saccadePath(ready.path), {.directionDegrees = m_parameters.directionDegrees,
                                                 .durationMs = m_parameters.durationMs,
                                                 .amplitudePx = m_parameters.amplitudePercent * percent * diagonal});
    return ready;
}

std::vector<double> SimilarityMeasures::compare(const PreparedScanpath &first, const PreparedScanpath &second) const
{
    const MultiMatch match = multiMatch(first.saccades, second.saccades, m_pictureSizePx);
    const WarpedDistance warped = timeWarpedDistance(first.path, second.path);
    const CrossRecurrence recurrence = crossRecurrence(
        first.path, second.path,
        {.radiusPx = m_parameters.recurrenceRadiusPx, .shortestLine = static_cast<int>(m_parameters.recurrenceLine)});
    return {levenshteinSimilarity(first.areas, second.areas),
            alignmentSimilarity(first.areas, second.areas, m_areaScores, wordGap),
            levenshteinSimilarity(first.grid, second.grid),
            alignmentSimilarity(first.grid, second.grid, m_gridScores, wordGap),
            match.vector,
            match.direction,
            match.length,
            match.position,
            match.duration,
            scanMatch(first.timedGrid, second.timedGrid, m_scanMatchScores, m_parameters.scanMatchThreshold,
                      m_parameters.scanMatchGap),
            warped.sumPx,
            warped.meanPx,
            recurrence.recurrence,
            recurrence.determinism,
            recurrence.laminarity,
            recurrence.centerOfMass};
}
