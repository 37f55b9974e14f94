// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/DensityEvents.h"
#include "visualization/selection/DrawingContext.h"

#include <vector>

/// The events of the checked examinations and the eyes of the mode, recording after recording: samples that are valid
/// and inside the frame, sections whose first sample is inside.
std::vector<GazePointEvent> gazePointEvents(const DrawingContext &context);

/// With "only Fixations in AOIs" a section counts once for each area that contains its mean: in two overlapping areas
/// twice, in none not at all.
std::vector<FixationEvent> fixationEvents(const DrawingContext &context);
std::vector<FixationEvent> clusterEvents(const DrawingContext &context);

std::vector<SaccadeEvent> saccadeEvents(const DrawingContext &context);
