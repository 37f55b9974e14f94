// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/SpeedThreshold.h"

#include <optional>

// What panels and the programs hand to calculations and tables, which read no store.

/// Where the picture was seen, as the velocity detector has it in the store; nothing where it does not measure angles,
/// or has not yet.
std::optional<ViewingGeometry> storedGeometry();

/// Size of a pixel as part of the distance from eye to picture; nothing without geometry.
std::optional<double> storedPixelPerDistance();
