// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/CalculationInfo.h"
#include "model/Eye.h"
#include "model/EyeData.h"
#include "model/Group.h"

#include <QHash>

#include <memory>

struct ImageRecord;

/// The recording of one subject on one stimulus image, with three streams of samples of equal length. A plain value: a
/// copy is cheap until written.
struct Examination {
    /// The stream of an eye; that of the dominant eye is the left or the right one.
    EyeData &stream(Eye eye);
    const EyeData &stream(Eye eye) const;
    /// The streams as they are stored: left, right, mean.
    std::array<EyeData *, 3> streams() { return {&leftEye, &rightEye, &meanEye}; }
    std::array<const EyeData *, 3> streams() const { return {&leftEye, &rightEye, &meanEye}; }

    /// As the set file names it. Everything but "left" counts as right, so that a recording without a usable entry has
    /// a dominant eye, too.
    bool isLeftDominant() const;

    /// The longer of the two eyes' time from first to last sample, in ms; 0 without samples.
    qint64 duration() const;

    QString setFileText; ///< every line of the set file, each followed by "\n"
    QString subjectText; ///< the subject's entries, each followed by ", "
    CalculationInfo calculationInfo;
    QString missingImagePath; ///< path of an image that does not exist, else empty
    QString baseName;         ///< file name without folder and extension
    QHash<QString, QString> properties{{QStringLiteral("group"), Group::none}}; ///< one per table column
    QString subjectId;
    QString dominantEye; ///< "left", "right" or empty
    bool importOk = false;
    int groupIndex = 0; ///< index in the row's combo box; 0 is "None"
    QString groupName = Group::none;
    QString directory;                        ///< folder of the data file with trailing "/"
    std::shared_ptr<const ImageRecord> image; ///< shared with the image cache; null if there is no image
    QString imageName;
    int number = -1; ///< 1-based, -1 before import
    bool checked = true;
    // Of a recording in millimetres; 0 and empty in any other.
    float imageWidthPx = 0;
    float imageHeightPx = 0;
    float imageWidthMm = 0;
    float imageHeightMm = 0;
    QString iniPath;   ///< calibration of the tracker
    QString imagePath; ///< the stimulus, as it was chosen
    EyeData rightEye;
    EyeData leftEye;
    EyeData meanEye;
};
