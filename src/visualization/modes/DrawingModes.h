#pragma once

#include "visualization/shapes/AngleStar.h"
#include "visualization/shapes/ClusterShapes.h"
#include "visualization/shapes/FixationShapes.h"
#include "visualization/shapes/GazePointRaster.h"
#include "visualization/heatmap/Heatmap.h"
#include "visualization/shapes/SaccadeShapes.h"
#include "visualization/shapes/TransitionShapes.h"

#include <QLatin1StringView>

#include <algorithm>
#include <iterator>

/// One way of drawing a kind of data. The index in its table is the stored `visualizationMode`.
template <class Build>
struct DrawingMode {
    QLatin1StringView name; ///< as the panel's combo box shows it
    Build build;            ///< null where the step of this table draws nothing
};

// Panels offer all names of a table, in its order.

/// Gaze points of all checked examinations, pooled into one picture.
using PooledBuild = Drawing (*)(const DrawingContext &);
inline constexpr DrawingMode<PooledBuild> gazePointModes[] = {
    {QLatin1StringView("none"), nullptr},
    {QLatin1StringView("points"), gazePointSquares},
    {QLatin1StringView("heatmap"), heatmapDrawing<drawGazeHeatmap, HeatmapLook::AbsoluteScale>},
    {QLatin1StringView("shadowmap"), heatmapDrawing<drawGazeHeatmap, HeatmapLook::ShadowMap>},
};

/// Fixations, each examination by itself.
inline constexpr DrawingMode<FixationBuild> fixationModes[] = {
    {QLatin1StringView("none"), nullptr},
    {QLatin1StringView("elliptic (pca)"), fixationEllipses},
    {QLatin1StringView("circular"), fixationCircles},
    {QLatin1StringView("heatmap"), nullptr},
    {QLatin1StringView("shadowmap"), nullptr},
    {QLatin1StringView("histogram"), nullptr},
    {QLatin1StringView("histogram seperated"), nullptr}, // sic
};

/// Fixation clusters, each examination by itself.
inline constexpr DrawingMode<ClusterBuild> clusterModes[] = {
    {QLatin1StringView("none"), nullptr},
    {QLatin1StringView("elliptic (pca)"), clustersOfEye<clusterEllipses, ClusterSource::Own>},
    {QLatin1StringView("circular"), clustersOfEye<clusterCircles, ClusterSource::Own>},
    {QLatin1StringView("heatmap"), nullptr},
    {QLatin1StringView("shadowmap"), nullptr},
    {QLatin1StringView("cumulative elliptic"), clustersOfEye<clusterEllipses, ClusterSource::Cumulative>},
    {QLatin1StringView("cumulative circle"), clustersOfEye<clusterCircles, ClusterSource::Cumulative>},
    {QLatin1StringView("transitions"), transitionsOfEye<ClusterSource::Own>},
    {QLatin1StringView("cumulative transitions"), transitionsOfEye<ClusterSource::Cumulative>},
    {QLatin1StringView("cluster + cumulative transitions"), transitionsOfEye<ClusterSource::OwnThenCumulative>},
};

/// Saccades, all examinations pass by pass.
inline constexpr DrawingMode<SaccadeBuild> saccadeModes[] = {
    {QLatin1StringView("none"), nullptr},
    {QLatin1StringView("arrows"), arrowsOfPass},
    {QLatin1StringView("anglestar"), angleStarOfPass},
    {QLatin1StringView("heatmap"), nullptr},
    {QLatin1StringView("shadowmap"), nullptr},
    {QLatin1StringView("histogram"), nullptr},
    {QLatin1StringView("histogram seperated"), nullptr}, // sic
    {QLatin1StringView("histogram sac vs fix"), nullptr},
};

/// Modes of the other kinds that pool the checked examinations as well.
struct PooledMode {
    int mode; ///< the stored `visualizationMode`
    PooledBuild build;
};
inline constexpr PooledMode pooledFixationModes[] = {
    {3, heatmapDrawing<drawFixationHeatmap, HeatmapLook::AbsoluteScale>},
    {4, heatmapDrawing<drawFixationHeatmap, HeatmapLook::ShadowMap>},
};
inline constexpr PooledMode pooledClusterModes[] = {
    {3, heatmapDrawing<drawClusterHeatmap, HeatmapLook::AbsoluteScale>},
    {4, heatmapDrawing<drawClusterHeatmap, HeatmapLook::ShadowMap>},
};
inline constexpr PooledMode pooledSaccadeModes[] = {
    {3, heatmapDrawing<drawSaccadeHeatmap, HeatmapLook::AbsoluteScale>},
    {4, heatmapDrawing<drawSaccadeHeatmap, HeatmapLook::ShadowMap>},
};

/// The drawing of a stored mode that pools; nothing for any other mode.
template <std::size_t Count>
Drawing pooledDrawing(const PooledMode (&modes)[Count], int mode, const DrawingContext &context)
{
    const auto *row = std::find_if(std::begin(modes), std::end(modes),
                                   [mode](const PooledMode &pooled) { return pooled.mode == mode; });
    return row != std::end(modes) ? row->build(context) : Drawing();
}

/// The builder of a stored mode; null for no drawing and for a mode that the table does not have.
template <class Build, std::size_t Count>
Build builderOf(const DrawingMode<Build> (&modes)[Count], int mode)
{
    return mode >= 0 && static_cast<std::size_t>(mode) < Count ? modes[mode].build : nullptr;
}
