// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Eye.h"
#include "model/EyeData.h"

#include <QPolygon>

#include <array>
#include <optional>
#include <stop_token>

class DataModel;

/// Containers that pool the streams of the examinations, in the order of `Eye`.
using PooledStreams = std::array<EyeData, allEyes.size()>;

/// Cumulative clusters from regions: for each region and each pool the fixations of the checked examinations whose
/// ellipse touches the region and that no earlier region took. A region that touches no fixation makes no cluster.
///
/// @return the pools with copies of the fixations and with the clusters, to be put in place of the model's; nothing
/// when
///         stopped. With progress.
std::optional<PooledStreams> regionClusters(const QList<QPolygon> &regions, const DataModel &model,
                                            const std::stop_token &stop = {});
