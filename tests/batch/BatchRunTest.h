// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BatchProgram.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <memory>

inline QStringList words(const char *line)
{
    return QString::fromUtf8(line).split(u' ', Qt::SkipEmptyParts);
}

/// Fixations of the whole study, their tables and whatever else is asked for.
inline QStringList tablesOfTheStudy(const QStringList &further = {})
{
    return words("--quiet --calculate fixations --export fixations,events") + further + BatchProgram::study();
}

/// A test of runs that end well.
class BatchRunTest : public QObject {
protected:
    using Outcome = BatchProgram::Outcome;

    void start() { m_batch = std::make_unique<BatchProgram>(); }

    /// The files that a run without fault leaves in an empty working folder.
    QMap<QString, QByteArray> filesOf(const QStringList &arguments) const
    {
        m_batch->removeFiles();
        const Outcome outcome = m_batch->run(arguments);
        if (outcome.status != 0)
            qWarning("exit code %d: %s", outcome.status, qPrintable(outcome.errors.join(u'\n')));
        return outcome.status == 0 ? m_batch->files() : QMap<QString, QByteArray>();
    }

    QJsonObject report() const
    {
        return QJsonDocument::fromJson(m_batch->contents(QStringLiteral("report.json"))).object();
    }

    std::unique_ptr<BatchProgram> m_batch;
};
