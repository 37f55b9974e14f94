#include "settings/SettingsFile.h"

#include "base/TextDecoding.h"

#include <QFile>
#include <QTextStream>

std::optional<QList<SettingsLine>> readSettingsFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QString text = decodeText(file.readAll());
    QTextStream stream(&text);
    QList<SettingsLine> lines;
    while (!stream.atEnd()) {
        const QStringList parts = stream.readLine().split(u'=');
        if (parts.size() == 2 && !parts.first().isEmpty())
            lines.append({parts.first(), parts.last()});
    }
    return lines;
}

void writeSettingsFile(const QString &path, const QList<SettingsLine> &lines)
{
    QFile::remove(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return;
    QTextStream stream(&file);
    for (const SettingsLine &line : lines)
        stream << line.key << '=' << line.value << '\n';
}
