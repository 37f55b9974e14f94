// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/BatchHelp.h"

#include "batch/OptionHelp.h"
#include "batch/OptionTable.h"
#include "rules/SettingRules.h"
#include "settings/SettingsStore.h"

QString batchHelp()
{
    QString help = QStringLiteral("vistrum-batch [options] RECORDING.data...\n"
                                  "Imports, calculates, exports and draws as the window does, without one.\n");
    for (const OptionGroup &group : optionGroups())
        help += optionhelp::ofGroup(group);
    help += QLatin1StringView("\nExamples:\n"
                              "  vistrum-batch --calculate fixations --export fixations,events --out tables *.data\n"
                              "  vistrum-batch --calculate fixations --background seen.png --image drawn.png S01.data\n"
                              "  vistrum-batch --settings mine.ini --set Visualization/Fixation/Size=8 \\\n"
                              "      --calculate fixations,clusters --export clusters --report run.json *.data\n");
    return help + QLatin1StringView("\nFiles written are listed on standard output, one path a line.\n"
                                    "Exit code: 0 all done, 1 something failed and the rest is done, 2 wrong call.\n");
}

QString keyList()
{
    const auto rules = settingRules();
    const SettingsStore store;
    QString list;
    for (const QString &key : store.allKeys()) {
        const SettingRule rule = rules.value(key);
        const QString expected = rule.isFree() ? QString() : QStringLiteral("  (%1)").arg(rule.expected());
        list += key + u'=' + store.value(key).toString() + expected + u'\n';
    }
    return list;
}
