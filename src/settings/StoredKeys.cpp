// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/StoredKeys.h"

EyeMode eyeMode()
{
    constexpr int first = static_cast<int>(EyeMode::showAll);
    constexpr int last = static_cast<int>(EyeMode::showMean);
    const int stored = readStored(keys::eyeMode);
    return stored < first || stored > last ? EyeMode::showAll : static_cast<EyeMode>(stored);
}

QSet<QLatin1StringView> storedFlags()
{
    QSet<QLatin1StringView> flags;
    const auto addIfSet = [&]<class T>(const StoredKey<T> &stored) {
        if constexpr (std::is_same_v<T, bool>) {
            if (readStored(stored))
                flags << stored.key;
        }
    };
    std::apply([&](const auto &...stored) { (addIfSet(stored), ...); }, keys::all);
    return flags;
}
