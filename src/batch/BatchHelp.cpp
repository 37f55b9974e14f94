#include "batch/BatchHelp.h"

#include "batch/OptionTable.h"
#include "batch/SettingRules.h"
#include "settings/SettingsStore.h"

namespace {

constexpr qsizetype helpColumn = 28;
constexpr qsizetype lineEnd = 98;

/// The text from the help column on, broken between words.
QString wrapped(const QString &text)
{
    QString lines;
    qsizetype column = helpColumn;
    for (const QString &word : text.split(u' ')) {
        if (column > helpColumn && column + word.size() > lineEnd) {
            lines = lines.chopped(1) + u'\n' + QString(helpColumn, u' ');
            column = helpColumn;
        }
        lines += word + u' ';
        column += word.size() + 1;
    }
    return lines.chopped(1);
}

QString helpOf(const OptionRow &row)
{
    const QString help(row.help);
    return row.value->words ? help.arg(row.value->words().join(QLatin1StringView(", "))) : help;
}

/// A name that reaches into the help column has a line of its own.
QString lineOf(const OptionRow &row)
{
    const QString call = QStringLiteral("  --%1 %2").arg(row.name, row.placeholder);
    const QString gap = call.size() < helpColumn ? QString() : u'\n' + QString(helpColumn, u' ');
    return call.leftJustified(helpColumn) + gap + wrapped(helpOf(row)) + u'\n';
}

QString helpOf(const OptionGroup &group)
{
    QString lines;
    for (const OptionRow &row : group.rows) {
        if (row.value)
            lines += lineOf(row);
    }
    return lines.isEmpty() ? lines : u'\n' + group.subject + QLatin1StringView(":\n") + lines;
}

} // namespace

QString batchHelp()
{
    QString help = QStringLiteral("vistrum-batch [options] RECORDING.data...\n"
                                  "Imports, calculates, exports and draws as the window does, without one.\n");
    for (const OptionGroup &group : optionGroups())
        help += helpOf(group);
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
        const bool isFree = rule.type == SettingRule::Type::Text && rule.words.isEmpty();
        const QString expected = isFree ? QString() : QStringLiteral("  (%1)").arg(rule.expected());
        list += key + u'=' + store.value(key).toString() + expected + u'\n';
    }
    return list;
}
