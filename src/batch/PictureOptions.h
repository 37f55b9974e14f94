// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/OptionRow.h"
#include "export/scene/PictureSettings.h"
#include "model/DataKind.h"

/// A chart that is to be written.
struct ChartFile {
    bool operator==(const ChartFile &) const = default;

    QString kind; ///< word of a chart kind
    QString path;
};

/// Of what each picture is: all recordings, or one for each subject, image or recording.
enum class ImagePer { Run, Subject, Image, Recording };

/// What a run draws.
struct PictureOptions {
    bool operator==(const PictureOptions &) const = default;

    QStringList images;
    QStringList drawValues; ///< assignments of `drawvalues`
    QList<ChartFile> charts;
    PictureArea imageArea = PictureArea::Everything;
    int imageScale = 1;
    bool whiteGround = false;
    bool legend = false;
    bool labelFixations = false;
    ImagePer imagePer = ImagePer::Run;
    AppendedParts appended;
    QString diagramFile; ///< empty: none
    QString videoFile;   ///< empty: none
    int videoStepMs = 100;
    bool noBorder = false;
    QString densityFile; ///< empty: none
    DataKind densityKind = DataKind::GazePoints;
};

/// The settings of its pictures.
PictureSettings pictureSettings(const PictureOptions &options);

OptionGroup pictureOptions();

/// The word for a kind of density, as the option has it.
QString densityKindWord(DataKind kind);
