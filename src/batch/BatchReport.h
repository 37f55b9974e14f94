// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/MessageRecord.h"

#include <QJsonObject>
#include <QMap>

class SettingsStore;

/// A file and its contents at the time of the run.
struct ReportedFile {
    bool operator==(const ReportedFile &) const = default;

    QString path; ///< as the user gave it
    qint64 bytes = 0;
    QString sha256; ///< hexadecimal; empty if the file could not be read, or is none, as a pipe
};

/// A file that the run read.
struct ReportedInput {
    ReportedFile file;
    QString kind;                 ///< "recording", "table", "set file", "settings", "background", "areas of interest"
    bool used = true;             ///< false for a file of which nothing was taken
    QMap<QString, qint64> counts; ///< what was found in it: "samples", "left fixations" and so on
    QList<ShownMessage> messages; ///< about this file
    QJsonObject quality = {};     ///< of a recording that was used: the measures of each eye by their names; of a table
                                  ///< such an object for each of its recordings
    QJsonObject table = {};       ///< how a table was read and what it held; empty for other files
    QStringList recordings = {};  ///< names of those of a table that came into the model, in its order
};

/// An area of interest at the end of the run.
struct ReportedArea {
    QString name;
    bool enabled = true;
    qint64 vertices = 0;
    double areaPx = 0; ///< px^2
};

/// What a result rests on, so that others can repeat it. It holds no time and nothing else that differs from run to
/// run: the same inputs and options give the same bytes.
struct BatchReport {
    QString program = QStringLiteral("vistrum-batch");
    QString version;
    QMap<QString, QString> options;    ///< what the command line asked for beyond the parameters
    QMap<QString, QString> density;    ///< kind, kernel and unit of the exported density; empty without one
    QMap<QString, QString> parameters; ///< every key of the settings store
    QList<ReportedInput> inputs;       ///< in the order of the command line
    QList<ReportedArea> areas;         ///< in the order of their names
    QJsonObject methods;               ///< what a methods section states, and its text; empty: left out
    QList<ShownMessage> messages;      ///< those that are about no input
    QList<ReportedFile> outputs;       ///< in the order in which they were written
};

/// Size and SHA-256 of the file, read piece by piece.
ReportedFile reportedFile(const QString &path);

/// Every key and value of the store, as text.
QMap<QString, QString> storedParameters(const SettingsStore &store);

/// The report as JSON, the keys of each object in alphabetical order.
QJsonDocument toJson(const BatchReport &report);
