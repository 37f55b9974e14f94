// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingsFile.h"

#include "base/FileReplacement.h"
#include "base/TextDecoding.h"

#include <QFile>
#include <QTextStream>

std::optional<QList<SettingsLine>> readSettingsFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return parseSettingsFile(file.readAll());
}

QList<SettingsLine> parseSettingsFile(const QByteArray &bytes)
{
    QString text = decodeText(bytes);
    QTextStream stream(&text);
    QList<SettingsLine> lines;
    for (int number = 1; !stream.atEnd(); ++number) {
        QString line = stream.readLine();
        while (line.endsWith(u'\r')) // the stream takes one away; a file that was converted twice has more
            line.chop(1);
        const QStringList parts = line.split(u'=');
        if (parts.size() == 2 && !parts.first().isEmpty())
            lines.append({parts.first(), parts.last(), number});
    }
    return lines;
}

std::optional<QString> writeSettingsFile(const QString &path, const QList<SettingsLine> &lines)
{
    return replaceFile(path, settingsFileText(lines));
}

QByteArray settingsFileText(const QList<SettingsLine> &lines)
{
    QString text;
    for (const SettingsLine &line : lines)
        text += line.key + u'=' + line.value + u'\n';
    constexpr QChar byteOrderMark = u'\uFEFF';
    if (text.startsWith(byteOrderMark)) // that of the first key: readers take one away
        text.prepend(byteOrderMark);
    return text.toUtf8();
}
