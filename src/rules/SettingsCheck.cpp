// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/SettingsCheck.h"

#include "base/Messages.h"
#include "settings/SettingsStore.h"
#include "settings/StoredKeys.h"

namespace {

/// The lines that are left out, without those of free texts: the window saves the name of a folder that holds "=", too,
/// and cannot read it; it shapes no result.
QList<SettingsLine> unreadLines(const QByteArray &bytes, const QHash<QString, SettingRule> &rules)
{
    QList<SettingsLine> lines = settingsLinesLeftOut(bytes);
    lines.removeIf([&](const SettingsLine &line) { return rules.contains(line.key) && rules[line.key].isFree(); });
    return lines;
}

void warnOfUnknownKeys(const QString &path, const QStringList &keys)
{
    if (!keys.isEmpty())
        messages::warning(QStringLiteral("Settings"),
                          QStringLiteral("%1: keys that this version does not have are passed over: %2")
                              .arg(path, keys.join(QLatin1StringView(", "))));
}

void warnOfUnreadLines(const QString &path, const QList<SettingsLine> &lines)
{
    if (!lines.isEmpty())
        messages::warning(
            QStringLiteral("Settings"),
            QStringLiteral("%1: lines left out that are not a key, one \"=\" and a value: %2; the first is "
                           "line %3.")
                .arg(path, QString::number(lines.size()), QString::number(lines.first().number)));
}

} // namespace

SettingsCheck checkSettings(const QByteArray &bytes)
{
    const auto rules = settingRules();
    SettingsCheck check;
    check.unread = unreadLines(bytes, rules);
    for (const SettingsLine &line : check.unread) {
        if (rules.contains(line.key)) {
            check.problem = {line.number, QStringLiteral("%1: not a key, one \"=\" and a value").arg(line.key)};
            return check;
        }
    }
    const SettingsStore store;
    for (const SettingsLine &line : parseSettingsFile(bytes)) {
        if (line.key == keys::version.key)
            continue; // of the program that wrote the file
        if (!store.contains(line.key)) {
            check.unknown << line.key;
            continue;
        }
        const SettingRule rule = rules.value(line.key);
        const std::optional<ParameterValue> value = rule.value(line.value);
        if (!value) {
            check.problem = {line.number, notOfItsRule(line.key, line.value, rule)};
            return check;
        }
        check.lines << SettingsCheck::Line{line, *value};
    }
    return check;
}

QString notOfItsRule(const QString &key, const QString &text, const SettingRule &rule)
{
    return QStringLiteral("%1=%2: not %3").arg(key, text, rule.expected());
}

void tellPassedOver(const QString &path, const SettingsCheck &check)
{
    warnOfUnreadLines(path, check.unread);
    warnOfUnknownKeys(path, check.unknown);
}
