#pragma once

#include "batch/OptionRow.h"
#include "model/DataKind.h"

/// What a run draws.
struct PictureOptions {
    bool operator==(const PictureOptions &) const = default;

    QStringList images;
    QStringList drawValues; ///< assignments of `drawvalues`
    bool noBorder = false;
    QString densityFile; ///< empty: none
    DataKind densityKind = DataKind::GazePoints;
};

OptionGroup pictureOptions();

/// The word for a kind of density, as the option has it.
QString densityKindWord(DataKind kind);
