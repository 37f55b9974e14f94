// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/FixationCalculationParameters.h"

#include <QJsonObject>

/// The detector and its parameters as data, the names of the keys with their units. A velocity in degrees has its
/// geometry.
QJsonObject toJson(const FixationCalculationParameters &parameters);

/// The parameters that such data state; or what is wrong with them, in words for the user.
std::variant<FixationCalculationParameters, QString> fixationParametersOf(const QJsonObject &json);
