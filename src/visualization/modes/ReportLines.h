// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TextFormat.h"

#include <QColor>
#include <QString>

/// The lines of a calculation report.
namespace reportlines {

inline constexpr QLatin1StringView lineEnd("<br>");
inline constexpr QLatin1StringView dashes("----------------------------------------<br>");

inline QString line(const char *caption, const QString &value = {}, const char *unit = "")
{
    return QString::fromUtf8(caption) + value + QString::fromUtf8(unit) + lineEnd;
}

inline QString line(const char *caption, int value, const char *unit = "")
{
    return line(caption, QString::number(value), unit);
}

inline QString line(const char *caption, double value, const char *unit = "")
{
    return line(caption, text::general6(value), unit);
}

inline QString line(const char *caption, bool value)
{
    return line(caption, value ? QStringLiteral("YES") : QStringLiteral("NO"));
}

inline QString line(const char *caption, const QColor &color)
{
    return line(caption, QStringLiteral("%1|%2|%3").arg(color.red()).arg(color.green()).arg(color.blue()));
}

} // namespace reportlines
