// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/FixationCluster.h"

class DataModel;

/// The clusters with the most fixations between the two times first; equals in the order of their numbers, so that a
/// frame gives the same order whatever was shown before.
QList<FixationCluster> orderedByFixationsWithin(const QList<FixationCluster> &clusters, TimeFrame frame);

/// Orders the fixation clusters of each stream of each examination by what the frame shows of them. Each redraw begins
/// with it.
///
/// The place in the list is the number of a cluster: names, colours, tool tips and tables made from now on follow the
/// new order. The `cluster` numbers of fixations keep the order of creation, and pooled clusters stay where they are:
/// each recording sees the same ones. With the whole recording as frame the order is that of `sortBySize`.
void orderClusters(DataModel &model, TimeFrame frame);
