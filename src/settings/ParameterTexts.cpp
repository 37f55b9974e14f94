// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/ParameterTexts.h"

#include "settings/FirstStart.h"
#include "settings/SettingsFile.h"
#include "settings/SettingsStore.h"
#include "settings/StoredKeys.h"

#include <QCoreApplication>
#include <QSet>

namespace {

/// Keys whose values are texts are places on this machine and the like, no parameters.
QSet<QString> foreignKeys()
{
    QSet<QString> foreign;
    const auto add = [&]<class T>(const StoredKey<T> &stored) {
        if constexpr (std::is_same_v<T, QString>)
            foreign.insert(stored.key);
    };
    std::apply([&](const auto &...stored) { (add(stored), ...); }, keys::all);
    return foreign;
}

} // namespace

QMap<QString, QString> deliveredParameters()
{
    const QString path = findDataFile(QStringLiteral("factory_settings.ini"), QCoreApplication::applicationDirPath());
    const QSet<QString> foreign = foreignKeys();
    QMap<QString, QString> parameters;
    for (const SettingsLine &line : readSettingsFile(path).value_or(QList<SettingsLine>())) {
        if (!foreign.contains(line.key))
            parameters.insert(line.key, line.value);
    }
    return parameters;
}

/// Some check boxes keep their state as a number, which reads as a flag, too.
QMap<QString, QString> currentParameters(const QMap<QString, QString> &delivered)
{
    const QStringList flags{QStringLiteral("false"), QStringLiteral("true")};
    const SettingsStore store;
    QMap<QString, QString> parameters;
    for (auto entry = delivered.cbegin(); entry != delivered.cend(); ++entry) {
        const QVariant value = store.value(entry.key());
        parameters.insert(entry.key(),
                          flags.contains(entry.value()) ? flags[value.toBool() ? 1 : 0] : value.toString());
    }
    return parameters;
}
