// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/shapes/Drawing.h"

class QGraphicsScene;

/// Adds an item for each shape, on top of what the scene holds already. The scene owns the items.
void addItems(QGraphicsScene &scene, const Drawing &drawing);

/// Has the scene put new items into its index now, which it leaves to the event loop otherwise. Until then it looks
/// through all of them for each one that goes: n steps for each of n.
void finishNewItems(QGraphicsScene &scene);

/// Destroys the items of heatmaps of this kind.
void removeHeatmaps(QGraphicsScene &scene, DataKind kind);
