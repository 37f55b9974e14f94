// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/TextTable.h"

#include "base/FileReplacement.h"

void writeTable(const QString &path, const QString &text, ExportResult &result)
{
    FileReplacement file(path, Links::Replaced); // as the other tables are written
    file.write(text.toUtf8());
    takeTable(file, result);
}

void takeTable(FileReplacement &file, ExportResult &result)
{
    if (const std::optional<QString> problem = file.commit())
        result.refuse(file.path(), *problem);
    else
        result.written << file.path();
}

QString subjectFields(const QString &id, const QString &text)
{
    return u'"' + id + QLatin1StringView("\";\"") + text + QLatin1StringView("\";");
}
