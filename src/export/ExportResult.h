// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/CsvFile.h"

#include <QStringList>

/// What became of the files of one export.
struct ExportResult {
    /// Puts the file in its place, and notes it.
    void take(CsvFile &file);

    /// Notes a file that was not written.
    void refuse(const QString &path, const QString &reason);

    QStringList written;  ///< complete files, in the order in which they were taken
    QStringList failed;   ///< of these there is no new file; an older one is as it was
    QStringList problems; ///< a line for the user on each of those
};

/// The end of an export, for the user: `text` says where the files are. If any failed, the user is told which and why
/// instead, and that the others are not of the same age as those that stayed.
void tellExported(const QString &title, const QString &text, const ExportResult &result);
