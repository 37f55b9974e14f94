// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/OptionValues.h"

WrongValue optionvalues::unknownWord(const QString &word, const QStringList &known)
{
    return {word, QStringLiteral("not one of %1").arg(known.join(QLatin1StringView(", "))) + didYouMean(word, known)};
}

optionvalues::WholeNumber optionvalues::wholeNumber(const QString &text, int least, int most)
{
    bool ok = false;
    const int number = text.toInt(&ok);
    if (ok && number >= least && number <= most)
        return {number, std::nullopt};
    const QString range = most == std::numeric_limits<int>::max() ? QStringLiteral("%1 on").arg(least)
                                                                  : QStringLiteral("%1 to %2").arg(least).arg(most);
    return {0, WrongValue{text, QStringLiteral("not a whole number from ") + range}};
}
