#pragma once

#include "batch/OptionRow.h"
#include "model/DataKind.h"

/// A chart that is to be written.
struct ChartFile {
    bool operator==(const ChartFile &) const = default;

    QString kind; ///< word of a chart kind
    QString path;
};

/// What a run draws.
struct PictureOptions {
    bool operator==(const PictureOptions &) const = default;

    QStringList images;
    QStringList drawValues; ///< assignments of `drawvalues`
    QList<ChartFile> charts;
    bool noBorder = false;
    QString densityFile; ///< empty: none
    DataKind densityKind = DataKind::GazePoints;
};

OptionGroup pictureOptions();

/// The word for a kind of density, as the option has it.
QString densityKindWord(DataKind kind);
