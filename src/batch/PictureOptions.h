#pragma once

#include "batch/OptionRow.h"
#include "visualization/heatmap/HeatmapFigures.h"

/// What a run draws.
struct PictureOptions {
    bool operator==(const PictureOptions &) const = default;

    QStringList images;
    QStringList drawValues; ///< assignments of `drawvalues`
    bool noBorder = false;
    QString densityFile; ///< empty: none
    HeatmapKind densityKind = HeatmapKind::GazePoints;
};

OptionGroup pictureOptions();

/// The word for a kind of density, as the option has it.
QString densityKindWord(HeatmapKind kind);
