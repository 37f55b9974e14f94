// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/ImportCounts.h"
#include "model/GazePoint.h"

#include <QByteArrayView>
#include <QStringList>

/// Size of a stimulus on the screen.
struct StimulusSize {
    bool operator==(const StimulusSize &) const = default;

    /// Whether each size is at least 1, so that millimetres have a place on the picture.
    bool isComplete() const { return widthPx >= 1 && heightPx >= 1 && widthMm >= 1 && heightMm >= 1; }

    int widthPx = 0;
    int heightPx = 0;
    int widthMm = 0;
    int heightMm = 0;
};

/// What a recording in millimetres held, for reports.
struct MillimetreCounts {
    bool operator==(const MillimetreCounts &) const = default;

    QStringList columns;        ///< that are read, in the order of `millimetreColumns`, as far as they were found
    qsizetype headerFields = 0; ///< fields of the first line
    LineCount wrongLength = {}; ///< lines with another number of fields; they are left out, empty ones are no lines
    LineCount noTimes = {};     ///< lines without a time of day; they are left out
    LineCount lossMarks = {};   ///< positions written as -1, "nan" or nothing: they count as places like any other
    LineCount dayEnds = {};     ///< samples more than half a day before the sample before them
    ImportCounts samples = {};  ///< of the samples that were taken
};

struct MillimetreSamples {
    QList<GazePoint> left;
    QList<GazePoint> right;
    QList<GazePoint> mean;
    MillimetreCounts counts;
};

/// The columns that are read: time of day, x and y of the left eye, x and y of the right eye.
QStringList millimetreColumns();

/// Reads a recording in millimetres: text with a tab between each two fields, the first line names the columns, in any
/// order and beside any others.
///
/// Times are "hh:mm:ss.zzz"; the third part is read without its point, so that "5.5" is 55 ms, where a decimal number
/// would be 5500. Times count from the first one that is not 0; hours count on beyond 24. Positions are mm to the right
/// from the middle of the stimulus and upwards from its bottom; they become pixels by the quotients of the sizes in
/// single precision, from half the width in whole pixels. A field that is no number counts as 0. Both eyes are valid
/// unless a coordinate of either is -1 exactly, in pixels; the mean is that of both in any case. Width and height
/// of a sample are the index of its line, the header being 0.
///
/// Where one of the columns is missing there are no samples. Safe to be called from several threads.
MillimetreSamples readMillimetreText(QByteArrayView bytes, const StimulusSize &size);

/// What is doubtful, a sentence each for the user; lines left out come with the columns that were found.
QStringList importDoubts(const MillimetreCounts &counts);

/// The counts by the names that they have in reports; with first lines where there are any.
QMap<QString, qint64> reportedCounts(const MillimetreCounts &counts);
