#pragma once

#include "model/CalculationInfo.h"
#include "model/EyeData.h"
#include "model/EyeMode.h"

#include <QHash>

#include <memory>

struct ImageRecord;

/// The recording of one subject on one stimulus image, with three streams of samples of equal length. A plain value: a
/// copy is cheap until written.
struct Examination {
    /// The stream of the eye named by the set file. Everything but "left" counts as right: results of recordings
    /// without a usable entry rest on the right eye.
    const EyeData &dominantEyeData() const { return isLeftDominant() ? leftEye : rightEye; }
    bool isLeftDominant() const;

    /// The longer of the two eyes' time from first to last sample, in ms; 0 without samples.
    qint64 duration() const;

    QString setFileText; ///< every line of the set file, each followed by "\n"
    QString subjectText; ///< the subject's entries, each followed by ", "
    CalculationInfo calculationInfo;
    QString missingImagePath; ///< path of an image that does not exist, else empty
    QString baseName;         ///< file name without folder and extension
    QHash<QString, QString> properties{{QStringLiteral("group"), QStringLiteral("None")}}; ///< one per table column
    QString subjectId;
    QString dominantEye; ///< "left", "right" or empty
    bool importOk = false;
    int groupIndex = 0; ///< index in the row's combo box; 0 is "None"
    QString groupName = QStringLiteral("None");
    QString directory;                        ///< folder of the data file with trailing "/"
    std::shared_ptr<const ImageRecord> image; ///< shared with the image cache; null if there is no image
    QString imageName;
    int number = -1; ///< 1-based, -1 before import
    bool checked = true;
    EyeData rightEye;
    EyeData leftEye;
    EyeData meanEye;
};

/// The streams of an examination that the mode selects, in drawing order: left before right for `showAll`.
QList<const EyeData *> selectedEyes(const Examination &examination, EyeMode mode);
