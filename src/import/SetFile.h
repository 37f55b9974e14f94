// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Examination.h"

#include <QByteArrayView>

/// Where a recording lies: "/study/p01.data" is "p01" in "/study/".
struct RecordingPath {
    /// @param dataFile  path of the recording with slashes; a file name without "." is the base name as it is.
    explicit RecordingPath(const QString &dataFile);

    /// The file beside the recording that names subject and stimulus image.
    QString setFile() const { return directory + baseName + QStringLiteral(".set"); }

    QString directory; ///< up to and including the last "/"; empty without one
    QString baseName;  ///< file name up to its last "."
};

/// An image that a set file names and that exists.
struct ImageReference {
    bool operator==(const ImageReference &) const = default;

    QString path;
    QString name; ///< as the set file calls it
};

/// An examination as its set file describes it, without samples.
struct DescribedExamination {
    Examination examination;
    QList<ImageReference> images; ///< order of the file; the last one is the stimulus
    QString error;                ///< why the set file could not be read, else empty
};

/// Reads the set file of a recording. Without one, or with one above 16 MB, there is no subject and no image, and
/// `error` is set. Safe to be
/// called from several threads.
DescribedExamination readSetFile(const QString &dataFile);

/// The same for the content of a set file: lines of key=value, first on the image and then, below the line "[subject]",
/// on the subject. Values are what stands behind the last "=", blanks included.
DescribedExamination parseSetFile(QByteArrayView bytes, const RecordingPath &path);
