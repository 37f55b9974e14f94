#include "export/TidyTable.h"

#include <QLocale>

#include <cmath>

namespace {

QString quoted(QString field)
{
    const bool isPlain =
        !field.contains(u',') && !field.contains(u'"') && !field.contains(u'\n') && !field.contains(u'\r');
    return isPlain ? field : u'"' + field.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

} // namespace

void TidyTable::addRow(const QStringList &fields)
{
    for (qsizetype i = 0; i < fields.size(); ++i)
        m_text += (i > 0 ? QStringLiteral(",") : QString()) + quoted(fields[i]);
    m_text += u'\n';
}

QString TidyTable::number(std::optional<double> value)
{
    if (!value || !std::isfinite(*value))
        return {};
    return QString::number(*value == 0 ? 0.0 : *value, 'g', QLocale::FloatingPointShortest);
}
