// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"
#include "import/DataImporter.h"
#include "import/SetFile.h"
#include "model/DataModel.h"

#include <functional>

/// What the user is to be told about a file.
using ImportMessage = messages::Message;

/// A recording and its set file as read from disk; nothing has been shown and no model has been touched.
struct ImportedFile {
    QString path;
    Examination examination;       ///< `importOk` tells whether it has samples
    QList<ImageReference> images;  ///< found images, the last one is the stimulus
    QList<ImportMessage> messages; ///< in the order in which they are to be shown
    ImportCounts counts;
    std::optional<ContentDigest> pipeDigest; ///< of a recording that cannot be read again
    QStringList doubts;                      ///< about the content, a sentence each
    QMap<QString, qint64> furtherCounts;     ///< of a kind of recording that counts more, by their names in reports
};

/// What was doubtful in the files of one import, in one message; none where there is nothing.
void reportDoubts(const QStringList &doubts);

/// "p01.data: left out 3 of the sample lines, ..." for each of the doubts.
/// @param name  of the file, as the user is told it: its path, or the name alone.
QStringList doubtsWithName(const ImportedFile &file, const QString &name);

/// A line for each file that stands more than once in the list, whatever the way to it is called.
QStringList repeatedFiles(const QStringList &paths);

/// That a recording does not fit into the memory, or otherwise was not read.
ImportMessage corruptRecording(const QString &path, const QString &reason);

/// Reads a recording and its set file. Safe to be called from several threads.
///
/// @param log  may be null. Lines of files that are read at the same time may stand in any order; without log their
///             wrong lines are still found in the counts.
/// Errors: a missing set file, and a recording that cannot be read or has no usable sample, give a message each. Its
/// details name the set file, or the reason. Nothing is thrown.
ImportedFile readRecording(const QString &path, const Log *log);

/// Reads one recording, as `readRecording` does; nothing may be thrown.
using RecordingReader = ImportedFile (*)(const QString &path, const Log *log);

/// Reads files side by side.
///
/// @param threads  at least 1.
/// @param log      may be null. The lines of each file stand together, in the order of the files.
/// @param read     called for each index below `count`, in any thread; the log is null where `log` is.
/// @param taken    called in the calling thread for each file, in their order.
void readFiles(qsizetype count, int threads, const Log *log,
               const std::function<ImportedFile(qsizetype, const Log *)> &read,
               const std::function<void(const ImportedFile &)> &taken);

/// The same for recordings.
void readRecordings(const QStringList &paths, int threads, const Log *log,
                    const std::function<void(const ImportedFile &)> &taken, RecordingReader read = readRecording);

/// Shows the messages of a file and, if it was read, appends the examination to those of the model, with the next
/// running number and with its image from the model's cache.
///
/// @return the number, from 1; nothing if the file was not read.
std::optional<int> addToModel(const ImportedFile &file, DataModel &model);

/// Tells the user which images were not found: all, of more than ten the others as details. No message without a
/// missing image.
void reportMissingImages(const QStringList &paths);

using ExaminationCallback = std::function<void(const Examination &)>;

struct ImportOutcome {
    QList<int> numbers;  ///< running numbers of the new examinations
    QStringList notRead; ///< base names of the other recordings
};

/// Reads the recordings into the model in the order of the paths, with progress. At the end it reports what went wrong,
/// missing images and, in one message for all files, what is doubtful in them.
///
/// @param added  called for each examination as soon as it stands in the model.
ImportOutcome importRecordings(const QStringList &paths, DataModel &model, const Log *log,
                               const ExaminationCallback &added, RecordingReader read = readRecording);

/// Takes the examinations with these running numbers out of the model again.
void removeFromModel(const QList<int> &numbers, DataModel &model);
