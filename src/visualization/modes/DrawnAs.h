// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/selection/DrawingContext.h"

/// Writes into each examination what a drawing with this context does with its gaze points, fixations, clusters and
/// cumulative clusters. A mode of charts that pool all examinations leaves the text of the fixations as it was.
void setDrawnAs(QList<Examination> &examinations, const DrawingContext &context);
