// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "diagram/ChordData.h"
#include "visualization/shapes/Drawing.h"

/// The chord diagram as shapes, 1600 px wide: an arc for each area, as long as its share of all transitions, a ribbon
/// for each pair in the colour of the area that more of them leave, and the names with their shares beside it. Without
/// transitions there are the names alone.
Drawing chordShapes(const ChordData &data);
