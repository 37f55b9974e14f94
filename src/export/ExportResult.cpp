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
    if (result.failed.isEmpty())
        messages::information(title, text);
    else
        messages::warning(title, result.problems.join(u'\n'));
}
