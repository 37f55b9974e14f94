// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableLayout.h"

struct NamedLayout {
    /// Whether it comes with the program; others were saved by somebody who knows the tables.
    bool isReady() const { return path.startsWith(QLatin1StringView(":/")); }

    QString name; ///< file name without ".layout.json"
    QString path;
    TableLayout layout;
};

struct LayoutList {
    QList<NamedLayout> layouts;   ///< by name
    QList<TableProblem> problems; ///< of files that are no layouts
};

/// The layouts that come with the program.
LayoutList readyLayouts();

/// The layouts (NAME.layout.json) of a folder; a folder that does not exist has none.
LayoutList layoutsIn(const QString &folder);

/// Reads one layout file.
std::variant<NamedLayout, TableProblem> readLayoutFile(const QString &path);

/// Writes a layout whole or not at all.
/// @return what went wrong.
std::optional<TableProblem> writeLayoutFile(const QString &path, const TableLayout &layout);

/// The one whose `match` has the most names of all those that the header has completely; of equals the last one. Null
/// if none fits.
///
/// @param header  names of the columns; for event logs the first words of the lines.
const NamedLayout *findLayout(const QStringList &header, const QList<NamedLayout> &layouts);

const NamedLayout *layoutByName(const QString &name, const QList<NamedLayout> &layouts);
