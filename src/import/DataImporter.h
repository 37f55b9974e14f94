// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Log.h"
#include "import/ContentDigest.h"
#include "import/EyeStreams.h"
#include "import/ImportCounts.h"
#include "import/SampleLine.h"
#include "model/Examination.h"

#include <QStringList>

/// Reads the samples of one recording (.data) into an examination; lives for the length of one call.
///
/// The file is text: sample lines begin with a digit and have eleven fields with a tab between each two (time in ms,
/// then x, y, pupil width, pupil height and validity of the left eye and of the right), all other lines are passed
/// over. Lines end at "\n" or "\r\n". A field that is no number counts as 0. Times are counted from the first sample,
/// usable or not; a difference beyond 64 bits becomes the nearest 64-bit number.
///
/// Errors go to the log: a file that cannot be read, and each sample line of wrong length, which is left out.
class DataImporter {
public:
    /// @param examination  gets the three streams, and only if the result is true.
    /// @param log          may be null: no lines are written.
    DataImporter(QString path, Examination *examination, const Log *log);

    /// @return false if the file cannot be read, has no samples, or has no usable sample of either eye.
    bool readFile();

    /// The same for the content of a file.
    bool readBytes(QByteArrayView bytes);

    const ImportCounts &counts() const { return m_counts; }

    /// Of a pipe, which cannot be read again; nothing of a file.
    const std::optional<ContentDigest> &pipeDigest() const { return m_pipeDigest; }

    /// Why the result was false, in words that follow "because"; empty if it was not.
    QString problem() const { return m_problem; }

private:
    void reserve(QByteArrayView bytes);
    void readLines(RecordingText &text);
    void readSampleLine(QByteArrayView line, RecordingText &text);
    void addSample(const SampleFields &fields, FieldReader &fieldReader);
    QString contentProblem(QByteArrayView bytes) const;
    void log(const QString &line);
    void flushLog();

    QString m_path;
    Examination *m_examination;
    const Log *m_log;
    QStringList m_pendingLog; ///< a damaged file can have millions of bad lines: they are written many at a time
    qsizetype m_pendingLogLength = 0;
    qsizetype m_lineNumber = 0; ///< of the line being read, from 1
    ImportCounts m_counts;
    QString m_problem;
    std::optional<ContentDigest> m_pipeDigest;
    qint64 m_timeZero = 0;
    qint64 m_lastRawTime = 0;
    bool m_firstLine = true;
    char m_wrongSeparator = 0; ///< of the first line of wrong length, if it has no tab
    EyeStreams m_streams;
};
