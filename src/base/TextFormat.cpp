// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TextFormat.h"

#include <QTime>

namespace text {

namespace {

QString printedNumber(double value, char format, int precision)
{
    const double unsignedZero = value == 0.0 ? 0.0 : value;
    return QString::number(unsignedZero, format, precision);
}

} // namespace

QString general6(double value)
{
    return printedNumber(value, 'g', 6);
}

QString fixed(double value, int decimals)
{
    return printedNumber(value, 'f', decimals);
}

QString decimalComma(QString number)
{
    return number.replace(u'.', u',');
}

QString clockTime(qint64 timeMs, const QString &format)
{
    constexpr qint64 dayMs = qint64(24) * 60 * 60 * 1000;
    return QTime(0, 0, 0).addMSecs(static_cast<int>(timeMs % dayMs)).toString(format);
}

QString timeText(qint64 timeMs)
{
    constexpr qint64 minuteMs = qint64(60) * 1000;
    constexpr qint64 hourMs = 60 * minuteMs;
    if (timeMs < minuteMs)
        return clockTime(timeMs, QStringLiteral("ss.zzz")) + QStringLiteral(" sec.ms");
    if (timeMs < hourMs)
        return clockTime(timeMs, QStringLiteral("mm:ss")) + QStringLiteral(" min:sec");
    return clockTime(timeMs, QStringLiteral("hh:mm:ss")) + QStringLiteral(" h:min:sec");
}

} // namespace text
