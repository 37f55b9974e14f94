// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/TidyTable.h"

#include <QLocale>

#include <cmath>

QString TidyTable::field(QString text)
{
    const bool isPlain = !text.contains(u',') && !text.contains(u'"') && !text.contains(u'\n') && !text.contains(u'\r');
    return isPlain ? text : u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

void TidyTable::addRow(const QStringList &fields)
{
    for (qsizetype i = 0; i < fields.size(); ++i)
        m_text += (i > 0 ? QStringLiteral(",") : QString()) + field(fields[i]);
    m_text += u'\n';
}

QString TidyTable::number(std::optional<double> value)
{
    if (!value || !std::isfinite(*value))
        return {};
    return QString::number(*value == 0 ? 0.0 : *value, 'g', QLocale::FloatingPointShortest);
}
