// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/charts/Chart.h"
#include "visualization/selection/DrawingContext.h"

// How many events were under way, over the time frame: those of the checked examinations in the eyes that the context
// shows, each widened by the time window of its record.

/// The saccades; with "Length dependent" each counts with its length in px.
Chart saccadeChart(const DrawingContext &context);
/// The same with a curve for each eye or, with "Use groupes", for each group.
Chart saccadesByEyeChart(const DrawingContext &context);
/// The lengths of saccades in px and the durations of fixations in ms, on one scale.
Chart saccadesAndFixationsChart(const DrawingContext &context);

Chart fixationChart(const DrawingContext &context);
/// The same with a curve for each eye or, with "Use groupes", for each group.
Chart fixationsByEyeChart(const DrawingContext &context);
