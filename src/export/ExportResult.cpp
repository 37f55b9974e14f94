// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/ExportResult.h"

#include "base/Messages.h"

void ExportResult::take(CsvFile &file)
{
    switch (file.commit()) {
    case CsvFile::State::Written:
        written << file.path();
        break;
    case CsvFile::State::Failed:
        refuse(file.path(), file.problem());
        break;
    case CsvFile::State::Untouched:
    case CsvFile::State::Open:
        break;
    }
}

void ExportResult::refuse(const QString &path, const QString &reason)
{
    failed << path;
    problems << writeFailure(path, reason);
}

void tellExported(const QString &title, const QString &text, const ExportResult &result)
{
    if (result.failed.isEmpty()) {
        messages::information(title, text);
        return;
    }
    QStringList lines = result.problems;
    if (const qsizetype others = result.written.size(); others == 1)
        lines << QStringLiteral("(the other file of this export is new)");
    else if (others > 1)
        lines << QStringLiteral("(the other %1 files of this export are new)").arg(others);
    messages::warning(title, lines.join(u'\n'));
}
