// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

/// The parameters as the program is delivered: texts by their keys in the store. Places on this machine and the like
/// are none.
QMap<QString, QString> deliveredParameters();

/// The values of the same keys as the store has them now.
QMap<QString, QString> currentParameters(const QMap<QString, QString> &delivered);
