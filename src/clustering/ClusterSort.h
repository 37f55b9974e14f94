// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/FixationCluster.h"

/// Puts the clusters with the most fixations first; equals keep their order.
void sortBySize(QList<FixationCluster> &clusters);
