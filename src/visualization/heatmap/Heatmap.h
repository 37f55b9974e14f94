#pragma once

#include "density/Density.h"
#include "visualization/shapes/Drawing.h"
#include "visualization/selection/DrawingContext.h"
#include "visualization/heatmap/HeatmapOptions.h"

/// The ways in which a density becomes a picture.
enum class HeatmapLook {
    AbsoluteScale, ///< colours by numbers of events, with figures for the labels
    RelativeScale, ///< colours by the share of the maximum; empty cells are transparent
    ShadowMap      ///< a black veil that density opens
};

struct Heatmap {
    QImage image;                          ///< 2560 x 1600, Format_ARGB32; null without events
    std::optional<HeatmapFigures> figures; ///< on the absolute scale only
};

/// The density of a heatmap by itself; without events nothing.
struct NamedDensity {
    Density cells;
    NormalDistribution kernel;
    QString unit; ///< of a cell
};
std::optional<NamedDensity> heatmapDensity(const DrawingContext &context, HeatmapKind kind);

Heatmap drawGazeHeatmap(const DrawingContext &context, HeatmapLook look);
Heatmap drawFixationHeatmap(const DrawingContext &context, HeatmapLook look);
Heatmap drawClusterHeatmap(const DrawingContext &context, HeatmapLook look);
Heatmap drawSaccadeHeatmap(const DrawingContext &context, HeatmapLook look);

/// A heatmap as a picture of the scene: one raster with its figures, nothing without events. As a row of the tables of
/// drawing modes: `heatmapDrawing<drawGazeHeatmap, HeatmapLook::ShadowMap>`.
template <Heatmap (*draw)(const DrawingContext &, HeatmapLook), HeatmapLook look>
Drawing heatmapDrawing(const DrawingContext &context)
{
    const Heatmap heatmap = draw(context, look);
    return heatmap.image.isNull() ? Drawing() : Drawing{RasterShape{heatmap.image, heatmap.figures}};
}
