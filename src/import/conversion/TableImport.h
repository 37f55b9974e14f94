// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/conversion/LayoutChoice.h"
#include "import/ExaminationImport.h"
#include "import/tables/TableFile.h"

#include <QJsonObject>

/// A table as read from disk; nothing has been shown and no model has been touched.
struct ImportedTable {
    QString path;
    QList<ImportedFile> recordings;     ///< those with a valid sample; their doubts name table and recording
    QStringList notRead;                ///< names of those without, or the table's where it could not be read
    QList<ImportMessage> messages;      ///< about recordings that are none, or the table if it could not be read
    QString note;                       ///< how it was read; empty where it was not
    QStringList doubts;                 ///< about the table as a whole, a line each that names it
    std::optional<ChosenLayout> layout; ///< none where the table could not be read
    QJsonObject report;                 ///< empty where the table could not be read
};

/// Reads the recordings of a table straight into examinations: as from the .data and .set files that a conversion would
/// write. Safe to be called from several threads.
ImportedTable importTable(const QString &path, const LayoutRequest &request, const TableProgress &progress = {});
