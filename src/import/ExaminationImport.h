#pragma once

#include "base/Messages.h"
#include "import/DataImporter.h"
#include "import/SetFile.h"
#include "model/DataModel.h"

#include <functional>

/// What the user is to be told about a file.
struct ImportMessage {
    bool operator==(const ImportMessage &) const = default;

    messages::Severity severity = messages::Severity::Warning;
    QString title;
    QString text;
};

/// A recording and its set file as read from disk; nothing has been shown and no model has been touched.
struct ImportedFile {
    Examination examination;       ///< `importOk` tells whether it has samples
    QList<ImageReference> images;  ///< found images, the last one is the stimulus
    QList<ImportMessage> messages; ///< in the order in which they are to be shown
    ImportCounts counts;
};

/// Reads a recording and its set file. Safe to be called from several threads.
///
/// @param log  may be null. Lines of files that are read at the same time may stand in any order; without log their
///             wrong lines are still found in the counts.
/// Errors: a missing set file, and a recording that cannot be read or has no usable sample, give a message each.
ImportedFile readRecording(const QString &path, const Log *log);

/// Shows the messages of a file and, if it was read, appends the examination to those of the model, with the next
/// running number and with its image from the model's cache.
///
/// @return the number, from 1; nothing if the file was not read.
std::optional<int> addToModel(const ImportedFile &file, DataModel &model);

/// Tells the user which images were not found: all, or the first ten of more. No message without a missing image.
void reportMissingImages(const QStringList &paths);

using ExaminationCallback = std::function<void(const Examination &)>;

/// Reads the recordings one after the other into the model, with progress, and reports missing images at the end.
///
/// @param added  called for each examination as soon as it stands in the model.
/// @return the running numbers of the new examinations; recordings that were not read have none.
QList<int> importRecordings(const QStringList &paths, DataModel &model, const Log *log,
                            const ExaminationCallback &added);

/// Takes the examinations with these running numbers out of the model again.
void removeFromModel(const QList<int> &numbers, DataModel &model);
