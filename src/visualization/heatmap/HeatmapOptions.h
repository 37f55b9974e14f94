// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/DensityEvents.h"
#include "visualization/parameters/VisualizationParameters.h"

/// The kernel that the record asks for; stored values out of range count as 10.
NormalDistribution normalDistribution(const VisualizationParameters &parameters);

/// The opacity of the veil, 0 to 255.
int shadowAlpha(const VisualizationParameters &parameters);

/// The exponent with which the veil opens, 0.1 to 1.0.
double shadowPower(const VisualizationParameters &parameters);
