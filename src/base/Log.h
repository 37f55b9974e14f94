// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// The program's log file: plain lines without time stamp or level.
///
/// Several instances may write to one file, since each line is opened, appended and closed: what was logged survives a
/// crash. A file that cannot be written loses the line silently.
/// An empty file name means no log; receivers of a `Log *` may be given null instead.
class Log {
public:
    explicit Log(QString fileName = QStringLiteral("./Vistrum2013.log"));

    /// A log that adds its lines to a list, for work beside other work: whoever started it writes them when it is their
    /// turn.
    /// @param lines  must outlive the log; not to be used by others meanwhile.
    explicit Log(QStringList &lines) : m_lines(&lines) {}

    /// Leaves an empty file, so that each run of the program starts a log of its own.
    void clear() const;

    /// Appends the text and a line end.
    void write(const QString &text) const;

    /// Appends several lines in one opening, for callers that have many at once.
    void write(const QStringList &lines) const;

private:
    QString m_fileName;
    QStringList *m_lines = nullptr;
};
