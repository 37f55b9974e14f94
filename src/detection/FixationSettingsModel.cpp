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
    constexpr int percentile = 2;
    if (stored == QStringLiteral("[Pixel / ms]")) // sic, unlike the item of the combo box
        return 0;
    return stored == QStringLiteral("[°/s]") ? 1 : percentile;
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
