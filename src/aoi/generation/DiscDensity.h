// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/Density.h"
#include "density/DensityEvents.h"

#include <span>

/// Density of gaze points for the search of regions: each adds a Gaussian that is cut to a disc, with the value at
/// offsets a and b exp(-(a * a + b * b) / (2 * sigma * sigma)) / (2 * pi * sigma * sigma) where
/// a * a + b * b <= h * h + 1, with h half the width of the kernel, a whole number. A cell takes what reaches it,
/// whatever else of the disc is beyond an edge; column 0 and row 0 take nothing.
///
/// The heatmaps' kernel is another one: a square, cut at the edges in pairs of offsets.
/// @param workers  number of threads, at least 1; it does not change a bit.
Density discDensity(std::span<const GazePointEvent> events, const NormalDistribution &kernel, int workers);
