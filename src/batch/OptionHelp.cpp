// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/OptionHelp.h"

QString optionhelp::wrapped(const QString &text)
{
    QString lines;
    qsizetype at = column;
    for (const QString &word : text.split(u' ')) {
        if (at > column && at + word.size() > lineEnd) {
            lines = lines.chopped(1) + u'\n' + QString(column, u' ');
            at = column;
        }
        lines += word + u' ';
        at += word.size() + 1;
    }
    return lines.chopped(1);
}

QString optionhelp::line(const QString &call, const QString &help)
{
    const QString gap = call.size() < column ? QString() : u'\n' + QString(column, u' ');
    return call.leftJustified(column) + gap + wrapped(help) + u'\n';
}
