// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/conversion/LayoutChoice.h"
#include "import/conversion/LineSpool.h"
#include "import/tables/TableFile.h"

#include <QMap>

/// A table that was read, with its recordings as lines of .data files.
struct ConvertedTable {
    ChosenLayout layout;
    TableContent content; ///< without samples; what rounding changed is among the oddities
    QList<bool> anyValid; ///< of each recording: whether a sample is valid
    LineSpool lines;
};

/// Reads a table in pieces, whatever its size. Safe to be called from several threads.
std::variant<ConvertedTable, TableProblem> readForConversion(const QString &path, const LayoutRequest &request);

/// The names of files that one conversion has used, each with the table it came from.
using UsedNames = QMap<QString, QString>;

/// What became of a recording.
struct WrittenRecording {
    QStringList files; ///< complete, as they are to be listed
    QStringList notes; ///< for the user, a sentence each
    QString problem;   ///< why there are not both files, in words for the user; empty if there are
};

/// Writes the .data and the .set file of a recording, each whole or not at all. Names that come from the table never
/// leave the folder, and no file replaces a table that is being converted or one that another recording gave.
///
/// @param index   of the recording in the content.
/// @param folder  exists.
/// @param used    names in use; tables that are converted stand there from the start.
WrittenRecording writeRecording(ConvertedTable &table, qsizetype index, const QString &path, const QString &folder,
                                UsedNames &used);
