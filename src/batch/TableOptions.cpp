// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/TableOptions.h"

#include "batch/BatchOptions.h"
#include "batch/OptionValues.h"
#include "batch/TableRows.h"

namespace {

using O = BatchOptions;
using Text = QLatin1StringView;
using optionvalues::Word, optionvalues::oneOf, optionvalues::someOf, optionvalues::text;

constexpr Word<EyeMode> eyeWords[] = {{Text("all"), EyeMode::showAll},
                                      {Text("dominant"), EyeMode::showDominant},
                                      {Text("left"), EyeMode::showLeft},
                                      {Text("right"), EyeMode::showRight},
                                      {Text("mean"), EyeMode::showMean}};

constexpr OptionValue prefixText{
    .read = text<&O::prefix>.read, .show = text<&O::prefix>.show, .empty = EmptyValue::Allowed};

constexpr OptionRow tableOptionRows[] = {
    {Text("export"), Text("LIST"), Text("of %1"), &someOf<&O::tables, tableRows>, Reported::Always},
    {Text("eyes"), Text("E"), Text("of %1, in tables and pictures (default: as the settings say, else all)"),
     &oneOf<&O::eyes, eyeWords>, Reported::Always},
    {Text("out"), Text("DIR"), Text("where tables go; made if missing (default: .)"), &text<&O::outputFolder>,
     Reported::Never, Text("export,recipe")},
    {Text("prefix"), Text("TEXT"), Text("beginning of the names of tables (default: vistrum)"), &prefixText,
     Reported::Never, Text("export")},
};

} // namespace

OptionGroup tableOptions()
{
    return {Text("Tables"), tableOptionRows};
}
