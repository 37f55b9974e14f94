#include "batch/StatisticsRows.h"

namespace {

using Text = QLatin1StringView;

constexpr OptionRow rows[] = {
    {Text("transitions"), Text("LIST")},
    {Text("transition-values"), Text("LIST")},
};

} // namespace

OptionGroup statisticsOptions()
{
    return {Text("Statistics"), rows};
}

QList<CalculationRow> statisticsCalculations()
{
    return {{Text("general-statistics")}, {Text("aoi-statistics")}};
}

QList<TableRow> statisticsTables()
{
    return {{Text("general-statistics")},
            {Text("aoi-statistics")},
            {Text("transitions")},
            {Text("anglestar")},
            {Text("tidy")},
            {Text("aoi-measures")},
            {Text("scanpath-measures")},
            {Text("group-comparison")},
            {Text("scanpath-similarity")},
            {Text("quality")},
            {Text("bids")}};
}
