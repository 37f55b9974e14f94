#pragma once

#include "visualization/FixationShapes.h"
#include "visualization/GazePointRaster.h"

#include <QLatin1StringView>

#include <iterator>

/// One way of drawing a kind of data. The index in its table is the stored `visualizationMode`.
template <class Build>
struct DrawingMode {
    QLatin1StringView name; ///< as the panel's combo box shows it
    Build build;            ///< null where nothing is drawn
};

/// Modes of which each examination is drawn by itself.
inline constexpr DrawingMode<FixationBuild> fixationModes[] = {
    {QLatin1StringView("none"), nullptr},
    {QLatin1StringView("elliptic (pca)"), fixationEllipses},
    {QLatin1StringView("circular"), fixationCircles},
};

/// Modes that pool the checked examinations into one picture.
using PooledBuild = Drawing (*)(const DrawingContext &);
inline constexpr DrawingMode<PooledBuild> gazePointModes[] = {
    {QLatin1StringView("none"), nullptr},
    {QLatin1StringView("points"), gazePointSquares},
};

/// The builder of a stored mode; null for no drawing and for a mode that the table does not have.
template <class Build, std::size_t Count>
Build builderOf(const DrawingMode<Build> (&modes)[Count], int mode)
{
    return mode >= 0 && static_cast<std::size_t>(mode) < Count ? modes[mode].build : nullptr;
}
