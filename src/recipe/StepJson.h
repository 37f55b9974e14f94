// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recipe/Recipe.h"

#include <QJsonObject>

namespace recipe {

/// A step as an object whose "step" is its word.
QJsonObject toJson(const Step &step);

/// The step that an object states; or what is wrong with it.
std::variant<Step, QString> stepOf(const QJsonObject &json);

} // namespace recipe
