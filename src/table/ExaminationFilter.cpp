// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/ExaminationFilter.h"

#include <cmath>

namespace {

/// What is no number reads as 0.
double numberIn(QStringView text)
{
    const double number = text.toDouble();
    return std::isfinite(number) ? number : 0;
}

bool hasExcludedDuration(const Examination &examination, const QString &limit)
{
    if (limit.size() <= 1)
        return false;
    const double limitMs = numberIn(QStringView(limit).sliced(1));
    if (limit.startsWith(u'>'))
        return static_cast<double>(examination.duration()) <= limitMs;
    if (limit.startsWith(u'<'))
        return static_cast<double>(examination.duration()) >= limitMs;
    return false;
}

bool hasExcludedProperty(const Examination &examination, const QString &key, const QString &value)
{
    const auto property = examination.properties.constFind(key);
    return property == examination.properties.cend() || *property != value;
}

} // namespace

bool isExcluded(const Examination &examination, const ExaminationFilter &filter)
{
    for (auto entry = filter.cbegin(); entry != filter.cend(); ++entry) {
        const bool excluded = entry.key() == durationFilterKey
                                  ? hasExcludedDuration(examination, entry.value())
                                  : hasExcludedProperty(examination, entry.key(), entry.value());
        if (excluded)
            return true;
    }
    return false;
}

void applyFilter(QList<Examination> &examinations, const ExaminationFilter &filter)
{
    for (qsizetype i = 0; i < examinations.size(); ++i) {
        const Examination &examination = examinations.at(i);
        if (examination.checked && isExcluded(examination, filter))
            examinations[i].checked = false;
    }
}
