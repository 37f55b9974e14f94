// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/shapes/Drawing.h"

class QGraphicsScene;

/// Adds an item for each shape, on top of what the scene holds already. The scene owns the items.
void addItems(QGraphicsScene &scene, const Drawing &drawing);

/// Destroys the items of heatmaps of this kind.
void removeHeatmaps(QGraphicsScene &scene, DataKind kind);
