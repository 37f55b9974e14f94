// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/conversion/LayoutChoice.h"
#include "import/conversion/LayoutFields.h"
#include "import/tables/TableFile.h"

/// What a layout makes of a table, for somebody who looks before importing.
struct TablePreview {
    QString problem;        ///< why nothing can be read; empty if it can
    TableContent content;   ///< the first samples
    QStringList recordings; ///< "p01: 1000 samples, 500 Hz", a line each
    QStringList oddities;   ///< a sentence each
    bool isPart = false;    ///< there are more samples than were read
    QString note;           ///< that reading took too long to show as much as usual; empty if it did not
    QString stimulus;       ///< path of the picture of the first recording, if there is one
};

/// One table on its way into the program.
struct TableToImport {
    QString path;
    TableExtract extract;
    LayoutGuess guess;
    QStringList messages; ///< first words of the messages of a log, the most frequent first
    TableLayout layout;   ///< as it was found and changed since
    bool isSeen = false;  ///< the user has changed a choice: no table is refused for what was found
    std::optional<TableProblem> unreadable;
};

/// The tables of one import with the layout of each: what the assistant shows and changes, without any widget.
class ImportSession {
public:
    /// @param known  layouts that headers are compared with.
    explicit ImportSession(QList<NamedLayout> known) : m_known(std::move(known)) {}

    /// Files as they are, and what lies in folders under the usual endings of tables; looks at each of them.
    void add(const QStringList &paths);

    /// Replaces the second after which nobody waits any longer for a look.
    void setLongestLook(qint64 ms) { m_longestLookMs = ms; }

    const QList<TableToImport> &tables() const { return m_tables; }
    const QList<NamedLayout> &known() const { return m_known; }

    /// Changes a choice of a table, and of all those that had the same layout.
    /// @return false where the text is none that the choice can take.
    bool change(qsizetype table, const LayoutField &field, const QString &text);

    /// Reads a table, and all those that had the same layout, by another one.
    void setLayout(qsizetype table, const TableLayout &layout);

    /// What the user should look at and has not changed, a sentence each.
    QStringList doubts(qsizetype table) const;

    /// Tables that are added from now on are compared with this layout, too; it takes the place of one of its name.
    void remember(const NamedLayout &layout);

    /// How sure a choice is, with the reason; null where nothing was said of it, or the user has changed it.
    const LayoutChoice *choice(qsizetype table, QLatin1StringView key) const;

    /// Columns by name, or by number where there are no names.
    QStringList columns(qsizetype table) const;

    /// What could be chosen for a choice, with nothing as the first where it may be left out.
    QStringList suggestions(qsizetype table, const LayoutField &field) const;

    /// "ready", or what has to be looked at, in a few words.
    QString state(qsizetype table) const;

    TablePreview preview(qsizetype table) const;

    /// What is to be read: the tables that can be, each with its layout.
    QList<std::pair<QString, LayoutRequest>> requests() const;

    /// The other tables, each with the reason for whoever misses it.
    QList<TableProblem> leftOut() const;

private:
    void addFile(const QString &path);
    bool isOfUser(const QString &layoutName) const;
    static std::optional<TableProblem> problemOf(const TableToImport &table);

    QList<NamedLayout> m_known;
    QList<TableToImport> m_tables;
    qint64 m_longestLookMs = 1000;
};

/// Names of tables in a folder, by their usual endings, sorted; files of Vistrum's own are no tables.
QStringList tablesIn(const QString &folder);
