// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/CalculationOptions.h"

#include "batch/BatchOptions.h"
#include "batch/CalculationRows.h"
#include "batch/OptionValues.h"

namespace {

using O = BatchOptions;
using Text = QLatin1StringView;
using optionvalues::number, optionvalues::someOf;

constexpr int mostOfPanel = 500;

std::optional<WrongValue> readSaccadeCluster(const QString &value, BatchOptions &options)
{
    const auto changed = withAssignment(options.saccadeClusters, value);
    if (const auto *problem = std::get_if<QString>(&changed))
        return WrongValue{value, *problem};
    options.saccadeClusters = std::get<SaccadeClusterOptions>(changed);
    return std::nullopt;
}

/// All of them, since none is stored elsewhere.
QString shownSaccadeClusters(const BatchOptions &options)
{
    const bool used = options.calculations.contains(saccadeClusterWord);
    return used ? assignments(options.saccadeClusters) : QString();
}

constexpr OptionValue saccadeCluster{
    .read = readSaccadeCluster, .show = shownSaccadeClusters, .given = Given::Repeatedly};

constexpr OptionRow calculationOptionRows[] = {
    {Text("calculate"), Text("LIST"), Text("of %1"), &someOf<&O::calculations, calculationRows>, Reported::Always},
    {Text("overlap-fixations"), Text("N"), Text("minimum of the overlap method of clusters (default: 1)"),
     &number<&O::overlapFixations, 1, mostOfPanel>},
    {Text("overlap-outliers"), Text("N"), Text("cumulative overlap clusters are those of all recordings but N"),
     &number<&O::overlapOutliers, 0, mostOfPanel>},
    {Text("saccade-cluster"), Text("NAME=VALUE"),
     Text("how saccades are clustered and drawn, such as mode=lines; repeatable"), &saccadeCluster},
};

} // namespace

OptionGroup calculationOptions()
{
    return {Text("Calculations"), calculationOptionRows};
}
