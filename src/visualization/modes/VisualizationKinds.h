#pragma once

#include "visualization/parameters/VisualizationParameters.h"

#include <QLatin1StringView>
#include <QStringList>

#include <span>

/// A kind of data that has a drawing panel of its own.
struct VisualizationKind {
    VisualizationParameters (*stored)(); ///< its record, as the store has it
    QLatin1StringView settingsName;      ///< its name in the colour maps of groups
    QLatin1StringView sizeLabel;
    QStringList (*modeNames)(); ///< the index is the stored `visualizationMode`
};

/// The four kinds: gaze points, fixations, fixation clusters, saccades. The place of a kind is its number in
/// `VisualizationWidget::sigExportheatmap`.
std::span<const VisualizationKind, 4> visualizationKinds();

/// The number of the kind with this `settingsName`; 0 where there is none.
int visualizationKindOf(const QString &settingsName);
