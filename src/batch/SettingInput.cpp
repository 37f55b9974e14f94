// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/SettingInput.h"

#include "base/BoundedFile.h"
#include "batch/Suggestion.h"
#include "rules/SettingsCheck.h"
#include "settings/SettingsStore.h"
#include "settings/StoredKeys.h"
#include "visualization/modes/VisualizationKinds.h"

#include <QSet>

namespace {

void store(const QString &key, const ParameterValue &value)
{
    std::visit([&](const auto &typed) { SettingsStore().setValue(key, toStored(typed)); }, value);
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

} // namespace

std::optional<UsageError> applySettingsFile(const QString &path)
{
    const std::variant<QByteArray, QString> read = readBounded(path, largestDescription);
    if (const auto *problem = std::get_if<QString>(&read))
        return UsageError{QStringLiteral("--settings %1: it cannot be read: %2").arg(path, *problem)};
    const SettingsCheck check = checkSettings(std::get<QByteArray>(read));
    if (check.problem)
        return UsageError{QStringLiteral("--settings %1, line %2: %3")
                              .arg(path, QString::number(check.problem->line), check.problem->text)};
    if (check.lines.isEmpty())
        return UsageError{QStringLiteral("--settings %1: no line of it sets a key of this program%2")
                              .arg(path, check.unknown.isEmpty() ? QString()
                                                                 : QStringLiteral("; unknown are: ") +
                                                                       check.unknown.join(QLatin1StringView(", ")))};
    tellPassedOver(path, check);
    QSet<QString> set;
    for (const SettingsCheck::Line &line : check.lines) {
        store(line.said.key, line.value);
        set << line.said.key;
    }
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
        const SettingRule rule = rules.value(setting.key);
        const std::optional<ParameterValue> value = rule.value(setting.value);
        if (!value)
            return UsageError{QStringLiteral("--set ") + notOfItsRule(setting.key, setting.value, rule)};
        store(setting.key, *value);
        set << setting.key;
    }
    followBorders(set);
    return std::nullopt;
}
