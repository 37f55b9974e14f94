// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/selection/DrawingContext.h"

#include <QStringList>

/// The parameters of drawings as the store has them, and those that it does not keep.
struct StoredRecords {
    /// @param drawValues  assignments of `drawvalues`.
    explicit StoredRecords(const QStringList &drawValues);

    /// What the model shows with them in its time frame. Refers to both.
    DrawingContext context(const DataModel &model) const;

    ByDataKind<VisualizationParameters> kinds;
    AoiVisualizationParameters areas;
};
