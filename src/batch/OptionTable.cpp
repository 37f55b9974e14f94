// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/OptionTable.h"

#include "batch/BatchOptions.h"

QList<OptionGroup> optionGroups()
{
    return {inputOptions(),      parameterOptions(), calculationOptions(), tableOptions(),
            statisticsOptions(), aoiOptions(),       pictureOptions(),     runOptions()};
}

QMap<QString, QString> reportedOptions(const BatchOptions &options)
{
    return reportedOptionsOf(optionGroups(), options);
}
