// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/Suggestion.h"

#include <algorithm>
#include <vector>

namespace {

/// Optimal string alignment distance, with the last three rows of its table.
qsizetype editDistance(const QString &from, const QString &to)
{
    std::vector<qsizetype> beforeLast;
    std::vector<qsizetype> last(static_cast<size_t>(to.size()) + 1);
    for (size_t j = 0; j < last.size(); ++j)
        last[j] = static_cast<qsizetype>(j);
    for (qsizetype i = 1; i <= from.size(); ++i) {
        std::vector<qsizetype> row{i};
        for (qsizetype j = 1; j <= to.size(); ++j) {
            const auto column = static_cast<size_t>(j);
            const qsizetype change = last[column - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
            qsizetype least = std::min({change, last[column] + 1, row[column - 1] + 1});
            const bool swapped = i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
            if (swapped)
                least = std::min(least, beforeLast[column - 2] + 1);
            row.push_back(least);
        }
        beforeLast = std::exchange(last, std::move(row));
    }
    return last.back();
}

} // namespace

QString suggestion(const QString &word, const QStringList &known)
{
    if (word.isEmpty())
        return {};
    const QStringList completions = known.filter(word, Qt::CaseInsensitive);
    QStringList beginnings;
    std::copy_if(completions.cbegin(), completions.cend(), std::back_inserter(beginnings),
                 [&](const QString &each) { return each.startsWith(word, Qt::CaseInsensitive); });
    if (beginnings.size() == 1)
        return beginnings.first();
    const qsizetype limit = std::max<qsizetype>(1, word.size() / 3);
    QString nearest;
    qsizetype least = limit + 1;
    for (const QString &each : known) {
        const qsizetype distance = editDistance(word.toLower(), each.toLower());
        if (distance < least) {
            least = distance;
            nearest = each;
        }
    }
    return nearest;
}

QString didYouMean(const QString &word, const QStringList &known)
{
    const QString nearest = suggestion(word, known);
    return nearest.isEmpty() ? QString() : QStringLiteral("; did you mean %1?").arg(nearest);
}
