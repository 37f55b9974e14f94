// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/Density.h"
#include "density/SaccadeMarks.h"

#include <span>

/// Density of saccades: a tube or a stretched Gaussian between each two neighbouring fixations of a walk. No mark links
/// two recordings or two eyes.
///
/// @param workers  number of threads, at least 1; it does not change a bit.
Density saccadeDensity(std::span<const SaccadeEvent> events, const SaccadeMarkStyle &style, int workers);
