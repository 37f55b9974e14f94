// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableProblem.h"

#include <QJsonObject>
#include <QStringList>

#include <variant>

/// The files of one recording in a BIDS data set.
struct BidsRun {
    QString name;        ///< "sub-01_task-view_run-1": that of its files up to what was recorded
    QString directory;   ///< with "/" at its end
    QStringList samples; ///< paths of the tables of samples, in the order of their names
};

/// Whether the path is that of a table of samples in a data set, or of its description; the file need not exist.
bool isBidsSamples(const QString &path);

/// The run to which a table of samples, or its description, belongs.
BidsRun bidsRun(const QString &path);

/// One table of samples of each run in the folder and below, by which the whole run is read; in the order of the paths.
QStringList bidsRunsIn(const QString &folder);

/// Leaves out files that belong to the run of a file before them.
QStringList withoutRepeatedRuns(const QStringList &paths);

/// What the descriptions say of a file: those beside it, and those in folders above it that hold for it, up to that of
/// the data set. What is nearer stands above what is farther.
///
/// @param kind  the end of the names of the descriptions, such as "physio".
/// A description that cannot be read is a problem.
std::variant<QJsonObject, TableProblem> bidsDescription(const QString &dataFile, const QString &kind);

/// The description that would stand beside a table: its name with another end.
QString bidsSidecarPath(const QString &dataFile, const QString &kind);
