// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterParameters.h"
#include "clustering/SaccadeClusterParameters.h"

#include <QJsonObject>

/// The method and its parameters as data, the names of the keys with their units.
QJsonObject toJson(const ClusterParameters &parameters);

/// The parameters that such data state; or what is wrong with them, in words for the user.
std::variant<ClusterParameters, QString> clusterParametersOf(const QJsonObject &json);

/// By the names of the batch program's `--saccade-cluster`; choices by their words.
QJsonObject toJson(const SaccadeClusterParameters &parameters);
