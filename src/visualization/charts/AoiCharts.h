// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/charts/Chart.h"
#include "visualization/selection/DrawingContext.h"

// How the enabled areas were looked at over the time frame, by the checked examinations in the eyes that the context
// shows. Each event is widened by the time window of the areas' record. A fixation lies where its mean lies, by the
// winding rule.

/// How many examinations looked into each area: the share of them, whose deviation between examinations goes with it.
/// The deviation is the root of the summed squares divided by the number of examinations, which is kept; the textbook
/// form divides before the root.
Chart aoiFixationChart(const DrawingContext &context);
/// The share of each area in all looks of a bin: where anything is looked at, the curves add up to 1.
Chart aoiFixationShareChart(const DrawingContext &context);

/// Transitions out of each area into others, by the type of transition that the record has.
Chart aoiTransitionChart(const DrawingContext &context);
/// Transitions per minute of each pair of areas that has any, all recordings together. A bin's count is that of the
/// time that the bin with its window covers.
Chart aoiTransitionPairChart(const DrawingContext &context);

/// Why a chart of areas would be empty, in words for the user: no areas, or no fixations. Nothing where it is not.
std::optional<QString> emptyAoiChart(const DataModel &model);
