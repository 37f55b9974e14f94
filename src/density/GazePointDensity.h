// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/Density.h"
#include "density/DensityEvents.h"

#include <span>

/// exp(-i * i / (2 * sigma * sigma)) for i from 0 to count - 1: one axis of the gaze kernel, which is the product of
/// both axes over 2 * pi * sigma * sigma.
std::vector<double> gaussianProfile(int count, int sigma);

/// Positions of one axis, the last one not included.
struct PositionRange {
    int begin;
    int end;

    bool operator==(const PositionRange &) const = default;
};

/// Where a gaze point may lie to reach a cell, along one axis of `size` positions; the other axis has its own range.
///
/// A point at p adds its kernel at p - i and p + i for each offset i below halfWidth with p - i > 0 and p + i < size:
/// at the edge the kernel is cut offset by offset, on both sides at once. So p reaches i < min(halfWidth, p, size - p),
/// and position 0 is reached by none. The cut is kept; the textbook form cuts only what lies outside the canvas.
PositionRange positionsReaching(int cell, int size, int halfWidth);

/// Density of gaze points: each adds a Gaussian of half width `width / 2`, with the value at offsets i and j
/// exp(-(i * i + j * j) / (2 * sigma * sigma)) / (2 * pi * sigma * sigma), cut at the edges as `positionsReaching`
/// tells.
///
/// The kernel is a product, and so is its cut: points are counted, smoothed down the columns, and these sums across
/// them. The work is bounded by the columns and rows that points reach, whatever their number.
///
/// @param workers  number of threads, at least 1; it does not change a bit.
Density gazePointDensity(std::span<const GazePointEvent> events, const NormalDistribution &kernel, int workers);
