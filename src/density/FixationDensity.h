// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/Density.h"
#include "density/FixationKernel.h"

#include <span>

/// What a fixation adds in all.
enum class FixationMass { One, Duration };

/// Density of fixations or clusters: each adds its oriented Gaussian (see `FixationKernel`) with the mass of 1 or of
/// its duration in ms; what lies outside the canvas is lost.
///
/// @param workers  number of threads, at least 1; it does not change a bit.
Density fixationDensity(std::span<const FixationEvent> events, const NormalDistribution &kernel, FixationMass mass,
                        int workers);
