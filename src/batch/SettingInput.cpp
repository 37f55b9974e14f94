// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/SettingInput.h"

#include "base/BoundedFile.h"
#include "base/Messages.h"
#include "batch/SettingRules.h"
#include "batch/Suggestion.h"
#include "settings/SettingsFile.h"
#include "settings/SettingsStore.h"
#include "settings/StoredKeys.h"
#include "visualization/modes/VisualizationKinds.h"

#include <QSet>

namespace {

/// Sets the key; what is wrong with the value, if it is none.
std::optional<QString> applyValue(const QHash<QString, SettingRule> &rules, const QString &key, const QString &text)
{
    const SettingRule rule = rules.value(key);
    const std::optional<ParameterValue> value = rule.value(text);
    if (!value)
        return QStringLiteral("%1=%2: not %3").arg(key, text, rule.expected());
    std::visit([&](const auto &typed) { SettingsStore().setValue(key, toStored(typed)); }, *value);
    return std::nullopt;
}

/// As in the window, a border follows from its fill colour and the border type; a border that was set itself stays.
void followBorders(const QSet<QString> &set)
{
    const auto follow = [&](const VisualizationParameters &record, const auto &fill, const auto &border) {
        const bool changed = set.contains(storedKey(record, fill)) || set.contains(storedKey(record, rows::borderType));
        if (changed && !set.contains(storedKey(record, border)))
            SettingsStore().setValue(storedKey(record, border),
                                     toStored(borderColorFor(record.*fill.member, record.borderType)));
    };
    for (const VisualizationKind &kind : visualizationKinds()) {
        const VisualizationParameters record = kind.stored();
        follow(record, rows::fillColor, rows::borderColor);
        follow(record, rows::fillColorLeft, rows::borderColorLeft);
        follow(record, rows::fillColorRight, rows::borderColorRight);
    }
}

void warnOfUnknownKeys(const QString &path, const QStringList &keys)
{
    if (!keys.isEmpty())
        messages::warning(QStringLiteral("Settings"),
                          QStringLiteral("%1: keys that this version does not have are passed over: %2")
                              .arg(path, keys.join(QLatin1StringView(", "))));
}

/// The lines that are left out, without those of free texts: the window saves the name of a folder that holds "=", too,
/// and cannot read it; it shapes no result.
QList<SettingsLine> unreadLines(const QByteArray &bytes, const QHash<QString, SettingRule> &rules)
{
    QList<SettingsLine> lines = settingsLinesLeftOut(bytes);
    lines.removeIf([&](const SettingsLine &line) { return rules.contains(line.key) && rules[line.key].isFree(); });
    return lines;
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

std::optional<UsageError> applySettingsFile(const QString &path)
{
    const std::variant<QByteArray, QString> read = readBounded(path, largestDescription);
    if (const auto *problem = std::get_if<QString>(&read))
        return UsageError{QStringLiteral("--settings %1: it cannot be read: %2").arg(path, *problem)};
    const QByteArray bytes = std::get<QByteArray>(read);
    const auto rules = settingRules();
    const QList<SettingsLine> unread = unreadLines(bytes, rules);
    for (const SettingsLine &line : unread) {
        if (rules.contains(line.key))
            return UsageError{QStringLiteral("--settings %1, line %2: %3: not a key, one \"=\" and a value")
                                  .arg(path, QString::number(line.number), line.key)};
    }
    QSet<QString> set;
    QStringList unknown;
    for (const SettingsLine &line : parseSettingsFile(bytes)) {
        if (line.key == keys::version.key)
            continue; // of the program that wrote the file
        if (!SettingsStore().contains(line.key)) {
            unknown << line.key;
            continue;
        }
        if (const auto problem = applyValue(rules, line.key, line.value))
            return UsageError{
                QStringLiteral("--settings %1, line %2: %3").arg(path, QString::number(line.number), *problem)};
        set << line.key;
    }
    if (set.isEmpty())
        return UsageError{QStringLiteral("--settings %1: no line of it sets a key of this program%2")
                              .arg(path, unknown.isEmpty() ? QString()
                                                           : QStringLiteral("; unknown are: ") +
                                                                 unknown.join(QLatin1StringView(", ")))};
    warnOfUnreadLines(path, unread);
    warnOfUnknownKeys(path, unknown);
    followBorders(set);
    return std::nullopt;
}

std::optional<UsageError> applySettings(const QList<BatchOptions::Setting> &settings)
{
    const auto rules = settingRules();
    QStringList known = SettingsStore().allKeys();
    known.removeAll(keys::version.key); // that of this program
    QSet<QString> set;
    for (const BatchOptions::Setting &setting : settings) {
        if (!known.contains(setting.key))
            return UsageError{QStringLiteral("--set %1: no such key").arg(setting.key) +
                              didYouMean(setting.key, known)};
        if (const auto problem = applyValue(rules, setting.key, setting.value))
            return UsageError{QStringLiteral("--set ") + *problem};
        set << setting.key;
    }
    followBorders(set);
    return std::nullopt;
}
