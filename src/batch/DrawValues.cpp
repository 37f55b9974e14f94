#include "batch/DrawValues.h"

#include "batch/Suggestion.h"
#include "visualization/parameters/VisualizationParameters.h"

#include <algorithm>

namespace {

using V = VisualizationParameters;
using Text = QLatin1StringView;

struct Row {
    Text name;
    Text words; ///< with commas in between, each standing for its place; empty for a percentage
    void (*set)(V &, double);
};

template <auto Member>
void set(V &parameters, double value)
{
    auto &member = parameters.*Member;
    member = static_cast<std::remove_reference_t<decltype(member)>>(value);
}

constexpr Text flags("no,yes");
constexpr double most = 100; // percent

constexpr Row drawingRows[] = {
    {Text("gaussian-saccades"), flags, set<&V::gaussianSaccades>},
    {Text("length-dependent"), flags, set<&V::lengthDependent>},
    {Text("fixation-duration-dependent"), flags, set<&V::fixationDurationDependent>},
    {Text("cluster-percentage"), Text(), set<&V::clusterPercentage>},
    {Text("percent-mode"), flags, set<&V::percentMode>},
    {Text("transition-type"), Text("scanpath,saccades"), set<&V::transitionType>},
};

const Row *rowOf(const QString &assignment)
{
    const QString name = assignment.section(u'=', 0, 0);
    const auto *found =
        std::find_if(std::begin(drawingRows), std::end(drawingRows), [&](const Row &row) { return row.name == name; });
    return found == std::end(drawingRows) ? nullptr : found;
}

std::optional<double> valueOf(const Row &row, const QString &text)
{
    if (!row.words.isEmpty()) {
        const qsizetype place = QString(row.words).split(u',').indexOf(text);
        return place < 0 ? std::nullopt : std::optional(static_cast<double>(place));
    }
    bool ok = false;
    const double number = text.toDouble(&ok);
    return ok && number >= 0 && number <= most ? std::optional(number) : std::nullopt;
}

} // namespace

QStringList drawvalues::names()
{
    QStringList names;
    for (const Row &row : drawingRows)
        names << row.name;
    return names;
}

std::optional<QString> drawvalues::problemOf(const QString &assignment)
{
    if (assignment.indexOf(u'=') < 1)
        return QStringLiteral("not of the form NAME=VALUE");
    const QString name = assignment.section(u'=', 0, 0);
    const Row *row = rowOf(assignment);
    if (!row)
        return QStringLiteral("%1 is not one of %2").arg(name, names().join(QLatin1StringView(", "))) +
               didYouMean(name, names());
    const QString value = assignment.section(u'=', 1);
    if (valueOf(*row, value))
        return std::nullopt;
    return row->words.isEmpty() ? QStringLiteral("not a number from 0 to 100")
                                : QStringLiteral("%1 is not one of %2")
                                      .arg(value, QString(row->words).replace(u',', QLatin1StringView(", ")));
}

void drawvalues::apply(const QStringList &assignments, VisualizationParameters &parameters)
{
    for (const QString &assignment : assignments) {
        const Row *row = rowOf(assignment);
        const auto value = row ? valueOf(*row, assignment.section(u'=', 1)) : std::nullopt;
        if (value)
            row->set(parameters, *value);
    }
}
