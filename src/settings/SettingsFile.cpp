// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingsFile.h"

#include "base/BoundedFile.h"
#include "base/FileReplacement.h"
#include "base/TextDecoding.h"

#include <QTextStream>

namespace {

struct NumberedLine {
    QString text;
    int number; ///< from 1
};

QList<NumberedLine> numberedLines(const QByteArray &bytes)
{
    QString text = decodeText(bytes);
    QTextStream stream(&text);
    QList<NumberedLine> lines;
    for (int number = 1; !stream.atEnd(); ++number) {
        QString line = stream.readLine();
        while (line.endsWith(u'\r')) // the stream takes one away; a file that was converted twice has more
            line.chop(1);
        lines << NumberedLine{line, number};
    }
    return lines;
}

bool isAssignment(const QString &line)
{
    return line.count(u'=') == 1 && !line.startsWith(u'=');
}

bool isHeaderOrEmpty(const QString &line)
{
    const QString trimmed = line.trimmed();
    return trimmed.isEmpty() || (trimmed.startsWith(u'[') && trimmed.endsWith(u']'));
}

SettingsLine settingsLine(const NumberedLine &line)
{
    return {line.text.section(u'=', 0, 0), line.text.section(u'=', 1), line.number};
}

} // namespace

std::optional<QList<SettingsLine>> readSettingsFile(const QString &path)
{
    const std::variant<QByteArray, QString> read = readBounded(path, largestDescription);
    const auto *bytes = std::get_if<QByteArray>(&read);
    return bytes ? std::optional(parseSettingsFile(*bytes)) : std::nullopt;
}

QList<SettingsLine> parseSettingsFile(const QByteArray &bytes)
{
    QList<SettingsLine> lines;
    for (const NumberedLine &line : numberedLines(bytes)) {
        if (isAssignment(line.text))
            lines << settingsLine(line);
    }
    return lines;
}

QList<SettingsLine> settingsLinesLeftOut(const QByteArray &bytes)
{
    QList<SettingsLine> lines;
    for (const NumberedLine &line : numberedLines(bytes)) {
        if (!isAssignment(line.text) && !isHeaderOrEmpty(line.text))
            lines << settingsLine(line);
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
