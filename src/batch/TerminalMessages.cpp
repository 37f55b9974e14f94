// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/TerminalMessages.h"

#include <algorithm>

void TerminalMessages::show(messages::Severity severity, const QString &rawTitle, const QString &rawText)
{
    const QString title = m_record.named(rawTitle);
    const QString text = m_record.named(rawText);
    m_record.add({severity, title, text});
    if (m_shown == Show::All || severity != messages::Severity::Information)
        m_terminal.writeLine(messageLine(title, text));
}

QString messageLine(const QString &title, const QString &text)
{
    QString line = title.isEmpty() ? text : title + QLatin1StringView(": ") + text;
    line.replace(QLatin1StringView("\r\n"), QLatin1StringView("\n"));
    while (line.endsWith(u'\n'))
        line.chop(1);
    const auto printable = [](QChar character) {
        if (character == u'\n' || character == u'\r' || character == u'\t')
            return QChar(u' ');
        return character.category() == QChar::Other_Control ? QChar(u'?') : character;
    };
    std::transform(line.cbegin(), line.cend(), line.begin(), printable);
    return line;
}
