// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The fixed raster on which everything is drawn; its origin is the top left corner of the stimulus image. Gaze
/// coordinates are canvas pixels, unscaled.
namespace canvas {

inline constexpr int width = 2560;  ///< px
inline constexpr int height = 1600; ///< px
inline constexpr int pixels = width * height;

} // namespace canvas
