// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/DrawValues.h"

#include "batch/Suggestion.h"
#include "visualization/parameters/AoiVisualizationParameters.h"
#include "visualization/parameters/VisualizationParameters.h"

#include <algorithm>

namespace {

using V = VisualizationParameters;
using A = AoiVisualizationParameters;
using Text = QLatin1StringView;

struct Range {
    double least = 0;
    double most = 100; // percent
};

/// One of the two setters is there.
struct DrawRow {
    Text name;
    Text words; ///< with commas in between, each standing for its place; empty for a number
    void (*set)(V &, double) = nullptr;
    void (*setOfAreas)(A &, double) = nullptr;
    Range range = {}; ///< of a number
};

template <auto Member>
void set(auto &parameters, double value)
{
    auto &member = parameters.*Member;
    member = static_cast<std::remove_reference_t<decltype(member)>>(value);
}

constexpr Text flags("no,yes");
constexpr Text transitionTypes("scanpath,saccades");
constexpr Range windowMs{10, 1e9};

constexpr DrawRow drawingRows[] = {
    {Text("gaussian-saccades"), flags, set<&V::gaussianSaccades>},
    {Text("length-dependent"), flags, set<&V::lengthDependent>},
    {Text("fixation-duration-dependent"), flags, set<&V::fixationDurationDependent>},
    {Text("cluster-percentage"), Text(), set<&V::clusterPercentage>},
    {Text("percent-mode"), flags, set<&V::percentMode>},
    {Text("transition-type"), transitionTypes, set<&V::transitionType>},
    {Text("aoi-transition-type"), transitionTypes, nullptr, set<&A::transitionType>},
    {Text("aoi-time-window"), Text(), nullptr, set<&A::timeWindowMs>, windowMs},
    {Text("aoi-global-widths"), flags, nullptr, set<&A::normTransGlobal>},
};

const DrawRow *rowOf(const QString &assignment)
{
    const QString name = assignment.section(u'=', 0, 0);
    const auto *found = std::find_if(std::begin(drawingRows), std::end(drawingRows),
                                     [&](const DrawRow &row) { return row.name == name; });
    return found == std::end(drawingRows) ? nullptr : found;
}

std::optional<double> valueOf(const DrawRow &row, const QString &text)
{
    if (!row.words.isEmpty()) {
        const qsizetype place = QString(row.words).split(u',').indexOf(text);
        return place < 0 ? std::nullopt : std::optional(static_cast<double>(place));
    }
    bool ok = false;
    const double number = text.toDouble(&ok);
    return ok && number >= row.range.least && number <= row.range.most ? std::optional(number) : std::nullopt;
}

void applyTo(auto &parameters, const QStringList &assignments, auto setter)
{
    for (const QString &assignment : assignments) {
        const DrawRow *row = rowOf(assignment);
        const auto value = row && row->*setter ? valueOf(*row, assignment.section(u'=', 1)) : std::nullopt;
        if (value)
            (row->*setter)(parameters, *value);
    }
}

} // namespace

QStringList drawvalues::names()
{
    QStringList names;
    for (const DrawRow &row : drawingRows)
        names << row.name;
    return names;
}

std::optional<QString> drawvalues::problemOf(const QString &assignment)
{
    if (assignment.indexOf(u'=') < 1)
        return QStringLiteral("not of the form NAME=VALUE");
    const QString name = assignment.section(u'=', 0, 0);
    const DrawRow *row = rowOf(assignment);
    if (!row)
        return QStringLiteral("%1 is not one of %2").arg(name, names().join(QLatin1StringView(", "))) +
               didYouMean(name, names());
    const QString value = assignment.section(u'=', 1);
    if (valueOf(*row, value))
        return std::nullopt;
    return row->words.isEmpty()
               ? QStringLiteral("not a number from %1 to %2").arg(row->range.least).arg(row->range.most, 0, 'g', 10)
               : QStringLiteral("%1 is not one of %2")
                     .arg(value, QString(row->words).replace(u',', QLatin1StringView(", ")));
}

void drawvalues::apply(const QStringList &assignments, VisualizationParameters &parameters)
{
    applyTo(parameters, assignments, &DrawRow::set);
}

void drawvalues::apply(const QStringList &assignments, AoiVisualizationParameters &parameters)
{
    applyTo(parameters, assignments, &DrawRow::setOfAreas);
}
