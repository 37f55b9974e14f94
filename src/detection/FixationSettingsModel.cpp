// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/FixationSettingsModel.h"

#include <algorithm>

int calculationTypeNamed(const QString &name)
{
    const auto found = std::find(std::begin(calculationTypeNames), std::end(calculationTypeNames), name);
    return found == std::end(calculationTypeNames)
               ? 0
               : static_cast<int>(std::distance(std::begin(calculationTypeNames), found));
}

namespace fixationstore {

QString storedCalculationType(const int &type)
{
    const bool isKnown = type >= 0 && type < static_cast<int>(std::size(calculationTypeNames));
    return isKnown ? QString(calculationTypeNames[type]) : QString();
}

int loadedCalculationType(const QString &stored)
{
    if (stored == calculationTypeNames[0])
        return 0;
    return stored == calculationTypeNames[1] ? 1 : unknownCalculationType;
}

QString storedVelocityUnit(const int &unit)
{
    return QString::number(unit);
}

int loadedVelocityUnit(const QString &stored)
{
    const auto *const found = std::find(std::begin(velocityUnitTexts), std::end(velocityUnitTexts), stored);
    return static_cast<int>(std::distance(std::begin(velocityUnitTexts), found)); // behind them: the percentile
}

} // namespace fixationstore

FixationSettingsModel initialFixationSettings()
{
    FixationSettingsModel model;
    setInitialValues(model, rows::fixation);
    return model;
}

void loadFixationSettings(FixationSettingsModel &model)
{
    loadParameters(model, rows::fixation);
    const SettingsStore store;
    const auto writeBack = [&](const auto &row) {
        if (!store.contains(storedKey(model, row)))
            setParameter(model, row, valueIn(model, row));
    };
    std::apply([&](const auto &...row) { (writeBack(row), ...); }, rows::fixation);
    setParameter(model, rows::velocityUnit, model.velocityUnit);
}

LostFixationChoices lostFixationChoices()
{
    const SettingsStore store;
    const QString type = store.value(rows::calculationType.key).toString();
    const QString unit = store.value(rows::velocityUnit.key).toString();
    LostFixationChoices lost;
    if (!type.isEmpty() && rows::calculationType.loaded(type) == unknownCalculationType)
        lost.detector = QStringLiteral("The stored detector \"%1\" is not recognised: the standard detector runs until "
                                       "another is chosen.")
                            .arg(type);
    bool isNumber = false;
    const int index = unit.toInt(&isNumber);
    const bool isKnown = isNumber && index >= 0 && index < static_cast<int>(std::size(velocityUnitNames));
    if (const int loaded = rows::velocityUnit.loaded(unit); isKnown && loaded != index)
        lost.velocityUnit = QStringLiteral("The stored unit of the velocity threshold, %1, is read as %2.")
                                .arg(velocityUnitNames[index], velocityUnitNames[loaded]);
    return lost;
}
