// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/Drawing.h"

/// The number of each fixation of the frame, from 1, in the order of the scanpath: of each eye that is drawn and of
/// each checked examination anew. Fixations that are not drawn, at a negative place, have a number that is not shown.
Drawing fixationNumbers(const DrawingContext &context);
