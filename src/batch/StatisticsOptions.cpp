// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/StatisticsOptions.h"

#include "batch/BatchOptions.h"
#include "batch/OptionValues.h"
#include "batch/SimilarityValues.h"
#include "batch/TransitionWords.h"

namespace {

using O = BatchOptions;
using Text = QLatin1StringView;
using optionvalues::someOf, optionvalues::text;

std::optional<WrongValue> readSimilarity(const QString &value, BatchOptions &options)
{
    if (const auto problem = similarityvalues::apply(value, options.similarity))
        return WrongValue{value, *problem};
    return std::nullopt;
}

constexpr OptionValue similarity{
    .read = readSimilarity,
    .show = [](const BatchOptions &options) { return similarityvalues::shown(options.similarity); },
    .words = similarityvalues::names,
    .given = Given::Repeatedly};

constexpr OptionRow statisticsOptionRows[] = {
    {Text("transitions"), Text("LIST"), Text("of %1 (default: all that have data)"),
     &someOf<&O::transitions, transitionRows>, Reported::IfGiven, Text("export transitions")},
    {Text("transition-values"), Text("LIST"), Text("of %1 (default: all)"),
     &someOf<&O::transitionValues, transitionValueRows>, Reported::IfGiven, Text("export transitions")},
    {Text("group-by"), Text("COLUMN"), Text("entry of the set files that names the groups to compare (default: group)"),
     &text<&O::groupBy>, Reported::IfGiven,
     Text("export tidy,export tidy-samples,export scanpath-measures,export group-comparison,export scanpath-similarity,"
          "export quality")},
    {Text("similarity"), Text("NAME=VALUE"),
     Text("a parameter of scanpath-similarity, of %1; repeatable (docs/measures.md tells what each means)"),
     &similarity, Reported::IfGiven, Text("export scanpath-similarity")},
};

} // namespace

OptionGroup statisticsOptions()
{
    return {Text("Statistics"), statisticsOptionRows};
}
