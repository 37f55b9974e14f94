#include "batch/StatisticsOptions.h"

#include "batch/OptionValues.h"
#include "batch/TransitionWords.h"

namespace {

using O = StatisticsOptions;
using Text = QLatin1StringView;
using namespace optionvalues;

constexpr OptionRow rows[] = {
    {Text("transitions"), Text("LIST"), Text("of %1 (default: all that have data)"),
     &someOf<&O::transitions, transitionRows>},
    {Text("transition-values"), Text("LIST"), Text("of %1 (default: all)"),
     &someOf<&O::transitionValues, transitionValueRows>},
    {Text("group-by"), Text("COLUMN"), Text("entry of the set files that names the groups to compare (default: group)"),
     &text<&O::groupBy>},
};

} // namespace

OptionGroup statisticsOptions()
{
    return {Text("Statistics"), rows};
}
