// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/MethodsWords.h"

#include <cmath>

namespace methodswords {

using namespace Qt::StringLiterals;

QString number(double value)
{
    constexpr int digits = 4;
    constexpr double wholeFrom = 1000;
    return std::abs(value) >= wholeFrom ? QString::number(value, 'f', 0) : QString::number(value, 'g', digits);
}

QString counted(qsizetype count, const char *noun)
{
    return QString::number(count) + u' ' + QString::fromUtf8(noun) + (count == 1 ? QString() : u"s"_s);
}

QString wasOrWere(qsizetype count)
{
    return count == 1 ? u"was"_s : u"were"_s;
}

QString listed(const QStringList &items)
{
    if (items.size() < 2)
        return items.value(0);
    return items.mid(0, items.size() - 1).join(u", "_s) + u" and "_s + items.last();
}

QString spread(const MethodsRange &range, const char *unit)
{
    const QString name = *unit ? u' ' + QString::fromUtf8(unit) : QString();
    QString median = number(range.median) + name;
    if (number(range.least) == number(range.most))
        return median;
    return u"%1 (median; %2 to %3%4)"_s.arg(median, number(range.least), number(range.most), name);
}

QString eyesText(EyeMode eyes)
{
    switch (eyes) {
    case EyeMode::showDominant:
        return u"the dominant eye"_s;
    case EyeMode::showLeft:
        return u"the left eye"_s;
    case EyeMode::showRight:
        return u"the right eye"_s;
    case EyeMode::showMean:
        return u"the mean of both eyes"_s;
    case EyeMode::showAll:
        break;
    }
    return u"the left and the right eye, each by itself"_s;
}

QString markdownEscaped(const QString &text)
{
    QString escaped;
    for (const QChar letter : text) {
        if (QStringView(u"\\`*_#<>|~").contains(letter))
            escaped += u'\\';
        escaped += letter;
    }
    return escaped;
}

} // namespace methodswords
