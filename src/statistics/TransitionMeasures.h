// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "statistics/ClusterTransitions.h"

/// How the transitions from and to one cluster are spread.
struct ClusterSpread {
    int fewestInWindow = -1;    ///< see required::fewestInWindow
    double meanTimeBetween = 0; ///< ms, from one transition to the next; 0 with fewer than two
    double timeDeviation = 0;   ///< ms, over all of these times
    double meanLength = 0;      ///< px; 0 without transitions
    double lengthDeviation = 0; ///< px, over all lengths
};

ClusterSpread clusterSpread(const ClusterTransitions &transitions, qsizetype cluster);
