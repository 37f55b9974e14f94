// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableLayout.h"
#include "import/tables/TableRecording.h"

#include <QIODevice>

#include <functional>

/// The start and the end of a table as text, for detection and preview. A file compressed with gzip is unpacked.
struct TableExtract {
    QString file;
    TableEncoding encoding = TableEncoding::Utf8; ///< as found, never by mark
    QStringList head;                             ///< up to 1,000 lines, without their ends; long ones are cut
    QStringList tail;     ///< up to 100 lines from the end; empty where the head has them, or the file is compressed
    qint64 size = 0;      ///< bytes on disk
    bool isWhole = false; ///< the head is the whole file
};

std::variant<TableExtract, TableProblem> readExtract(const QString &path);
/// @param file  for the problem's text.
std::variant<TableExtract, TableProblem> readExtract(QIODevice &device, const QString &file);

/// Takes the samples of a recording as they come, so that a file need not fit into the memory. The index is that of the
/// recording in the result, whose lists of samples stay empty. False: enough, reading ends without a problem.
using TakeSamples = std::function<bool(qsizetype recording, const QList<TableSample> &samples)>;

/// The part of the file that has been read, from 0 to 1; called now and then. False: enough, as above.
using TableProgress = std::function<bool(double part)>;

struct TableReadOptions {
    TakeSamples take = {};       ///< none: the samples are in the result
    TableProgress progress = {}; ///< may be none
    qsizetype sampleLimit = -1;  ///< stop behind so many samples, for a preview; -1: none
    qsizetype pieceBytes = 0;    ///< how much is read at a time; 0: as suits the reader
};

/// Reads a table by its layout, in pieces; gzip by its first bytes, whatever the name. Safe to be called from several
/// threads, for a file each.
///
/// Memory: the samples, and a few MB. Refused, with line and remedy: a file that cannot be read or has no samples, a
/// named column that is not there, a line beyond 1 MB, more than 10,000 columns, more than 100,000 recordings, a gzip
/// stream that is damaged or grows beyond 500 times its size.
std::variant<TableContent, TableProblem> readTable(const QString &path, const TableLayout &layout,
                                                   const TableReadOptions &options = {});
/// @param file  names the recordings, and the problem.
std::variant<TableContent, TableProblem> readTable(QIODevice &device, const QString &file, const TableLayout &layout,
                                                   const TableReadOptions &options = {});
