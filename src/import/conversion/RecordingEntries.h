// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableRecording.h"

/// Name for the files of a recording: that of the recording, with "_" for what no file name should have.
QString recordingFileName(const TableRecording &recording);

/// What goes into a set file, and what had to be left out.
struct RecordingSetFile {
    enum class Origin {
        Made,  ///< of the recording's entries
        Moved, ///< a copy of the set file beside the table, for another folder
        Kept   ///< the set file beside the table itself, which stays
    };

    QString text;      ///< with line ends
    QStringList notes; ///< for the user, a sentence each
    Origin origin = Origin::Made;
};

/// The set file of a recording of a table. One that lies beside the table, of the recording's name, counts; else it is
/// made of the recording's entries: without a subject the recording's name stands for it.
///
/// @param table   path of the table; its folder is where pictures are sought.
/// @param folder  of the set file; the picture's path is relative to it.
RecordingSetFile recordingSetFile(const TableRecording &recording, const QString &table, const QString &folder);
