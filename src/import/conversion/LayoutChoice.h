// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/LayoutDetection.h"
#include "import/tables/LayoutFiles.h"

class QJsonObject;

/// By which layout tables are to be read.
struct LayoutRequest {
    std::optional<NamedLayout> layout; ///< none: found for each table by looking at it
    QList<NamedLayout> known;          ///< that a table's header is compared with
    /// Columns, or the beginning of a message of an event log, at which a table is split into recordings. Empty: a
    /// given layout splits as it says, and what was found stays whole.
    QStringList split;
};

/// Reads what a command line says of the layout. Only layouts that come with the program are known by name: the same
/// call gives the same result on every machine.
///
/// @param word  "auto", a name, or the path of a layout file.
/// @return in place of a request what is wrong, in words that follow the option.
std::variant<LayoutRequest, QString> layoutRequest(const QString &word, const QStringList &split);

/// The layout of one table.
struct ChosenLayout {
    TableLayout layout;
    QString name;         ///< of a known layout; empty: found by the content
    double certainty = 1; ///< 0 to 1; of a layout that was given 1
    QString summary;      ///< of a layout that was found: what was chosen, in one line
    QStringList choices;  ///< of a layout that was found: what was chosen, how surely and why, a line each
    QStringList doubts;   ///< of a layout that was found: what should be looked at, a sentence each
};

/// Errors: a file that cannot be read or is no table of samples, and a guess that could give wrong numbers.
std::variant<ChosenLayout, TableProblem> chooseLayout(const QString &path, const LayoutRequest &request);

/// "read as a delimited table by the layout NAME, sure to 90 %; delimiter comma, ...", for a message.
QString layoutNote(const ChosenLayout &chosen);
