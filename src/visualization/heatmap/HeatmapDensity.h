// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/Density.h"
#include "density/DensityEvents.h"
#include "visualization/heatmap/HeatmapLook.h"
#include "visualization/selection/DrawingContext.h"

#include <optional>
#include <vector>

/// The density of one kind of data, and what its colours are scaled by.
struct HeatmapDensity {
    Density cells;
    NormalDistribution kernel;
    QString unit; ///< of a cell
    std::size_t events = 0;
    int eventsAtPeak = 0;                ///< nearer to the densest cell than half the kernel's width
    std::vector<FixationEvent> sections; ///< fixations or clusters; empty for the other kinds
    int workers = 1;                     ///< threads that are worth their start
};

/// The density of what the context shows of a kind; without events nothing.
///
/// @param look  a shadow map of saccades leaves out those that are shorter than its threshold.
std::optional<HeatmapDensity> heatmapDensity(DataKind kind, const DrawingContext &context,
                                             HeatmapLook look = HeatmapLook::AbsoluteScale);
