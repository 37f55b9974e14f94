#include "batch/OptionTable.h"

#include "batch/BatchOptions.h"

QList<OptionGroup> optionGroups()
{
    return {inputOptions(),      parameterOptions(), calculationOptions(), tableOptions(),
            statisticsOptions(), aoiOptions(),       pictureOptions(),     runOptions()};
}

QMap<QString, QString> reportedOptions(const BatchOptions &options)
{
    const BatchOptions defaults;
    QMap<QString, QString> reported;
    for (const OptionGroup &group : optionGroups()) {
        for (const OptionRow &row : group.rows) {
            if (!row.value || row.reported == Reported::Never)
                continue;
            const QString text = row.value->show(options);
            const bool stated = row.reported == Reported::Always || text != row.value->show(defaults);
            if (stated && !text.isNull())
                reported.insert(row.name, text);
        }
    }
    return reported;
}
