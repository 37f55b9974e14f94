#include "export/TextTable.h"

#include "base/FileReplacement.h"

void writeTable(const QString &path, const QString &text, ExportResult &result)
{
    FileReplacement file(path, Links::Replaced); // as the other tables are written
    file.write(text.toUtf8());
    if (const std::optional<QString> problem = file.commit())
        result.refuse(path, *problem);
    else
        result.written << path;
}

QString subjectFields(const QString &id, const QString &text)
{
    return u'"' + id + QLatin1StringView("\";\"") + text + QLatin1StringView("\";");
}
