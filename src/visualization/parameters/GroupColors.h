// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Group.h"
#include "visualization/parameters/VisualizationParameters.h"

/// The colours a new group starts with: the fill colours of the four kinds of data, each for the left, the right and
/// the dominant eye, keyed as the group expects them ("fixationClustersLeft" and so on).
Group::ColorTable groupColors(const DrawingRecords &records);
