// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/shapes/Drawing.h"

class QGraphicsItemGroup;
class QGraphicsScene;

/// Adds the arrows to the scene as one group on top of all else. The scene owns it; null without arrows.
QGraphicsItemGroup *addArrowGroup(QGraphicsScene &scene, const QList<ArrowShape> &arrows);

/// Takes the group with its items out of the scene and destroys it.
void removeGroup(QGraphicsScene &scene, QGraphicsItemGroup *group);
