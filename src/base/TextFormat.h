// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The forms in which Vistrum prints numbers and times; tables and tool tips share them.
namespace text {

/// Up to 6 significant digits, plain or exponent form, whichever is shorter; zero has no sign.
QString general6(double value);

/// Fixed form with the given number of decimals; zero has no sign.
QString fixed(double value, int decimals);

/// The number text with a comma in place of the decimal point.
QString decimalComma(QString number);

/// A time of the recording as clock text. `format` is that of QTime::toString; times wrap after 24 hours, and a
/// negative one counts back from midnight.
QString clockTime(qint64 timeMs, const QString &format);

/// A duration or a time of the recording with its unit: seconds and milliseconds below a minute, minutes and seconds
/// below an hour, else hours, minutes and seconds. Wraps as `clockTime` does.
QString timeText(qint64 timeMs);

} // namespace text
