// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/SimilarityValues.h"

#include "batch/Suggestion.h"

#include <algorithm>
#include <cmath>

QStringList similarityvalues::names()
{
    QStringList names;
    for (const SimilarityParameter &row : similarityParameters())
        names << row.name;
    return names;
}

std::optional<QString> similarityvalues::apply(const QString &assignment, SimilarityParameters &parameters)
{
    if (assignment.indexOf(u'=') < 1)
        return QStringLiteral("not of the form NAME=VALUE");
    const QString name = assignment.section(u'=', 0, 0);
    const auto rows = similarityParameters();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const auto &each) { return each.name == name; });
    if (row == rows.end())
        return QStringLiteral("%1 is not one of %2").arg(name, names().join(QLatin1StringView(", "))) +
               didYouMean(name, names());
    bool isNumber = false;
    const double value = assignment.section(u'=', 1).toDouble(&isNumber);
    const bool isWhole = row->decimals > 0 || std::floor(value) == value;
    if (!isNumber || !isWhole || !(value >= row->least && value <= row->most))
        return QStringLiteral("not a %1number from %2 to %3")
            .arg(row->decimals == 0 ? QStringLiteral("whole ") : QString(), QString::number(row->least),
                 QString::number(row->most));
    parameters.*row->member = value;
    return std::nullopt;
}

QString similarityvalues::shown(const SimilarityParameters &parameters)
{
    QStringList assignments;
    for (const SimilarityParameter &row : similarityParameters())
        assignments << row.name + u'=' + QString::number(parameters.*row.member);
    return assignments.join(u',');
}
