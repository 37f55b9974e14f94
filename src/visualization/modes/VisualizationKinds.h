// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/modes/DrawingModes.h"

#include <QStringList>

/// A kind of data that has a drawing panel of its own.
struct VisualizationKind {
    /// The names of its modes; the index is the stored `visualizationMode`.
    QStringList modeNames() const;

    DataKind kind;
    VisualizationParameters (*stored)(); ///< its record, as the store has it
    QLatin1StringView sizeLabel;
};

/// The kinds in the order of their values.
std::span<const VisualizationKind, allDataKinds.size()> visualizationKinds();

/// The kind with this `settingsName`; gaze points where there is none.
DataKind visualizationKindOf(const QString &settingsName);
